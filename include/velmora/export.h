#pragma once

// VELMORA_EXPORT marks what the shared library offers; everything else stays hidden, and so does
// what VELMORA_LOCAL marks inside of it.
#if defined(_WIN32)
#if defined(VELMORA_BUILDING_LIBRARY)
#define VELMORA_EXPORT __declspec(dllexport)
#else
#define VELMORA_EXPORT __declspec(dllimport)
#endif
#define VELMORA_LOCAL
#else
#define VELMORA_EXPORT __attribute__((visibility("default")))
#define VELMORA_LOCAL __attribute__((visibility("hidden")))
#endif
