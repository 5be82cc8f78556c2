#pragma once

// VELMORA_EXPORT marks what the shared library offers; everything else stays hidden.
#if defined(_WIN32)
#if defined(VELMORA_BUILDING_LIBRARY)
#define VELMORA_EXPORT __declspec(dllexport)
#else
#define VELMORA_EXPORT __declspec(dllimport)
#endif
#else
#define VELMORA_EXPORT __attribute__((visibility("default")))
#endif
