#pragma once

// The prototypes are only asked for their types.
#define GL_GLEXT_PROTOTYPES
#include <SDL3/SDL_opengl.h>
#include <SDL3/SDL_video.h>

// An entry point of the driver that is loaded now, null without one. It goes with the last window.
#define VELMORA_BENCH_GL(name) reinterpret_cast<decltype(&::name)>(SDL_GL_GetProcAddress(#name))

namespace velmora::bench {

// Has the frame drawn. The driver puts all drawing off until a swap on a display, and the windows
// here are offscreen: without this a frame costs next to nothing.
inline void finishFrame() {
    if (const auto finish = VELMORA_BENCH_GL(glFinish))
        finish();
}

} // namespace velmora::bench
