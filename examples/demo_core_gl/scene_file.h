#pragma once

#include <cstddef>
#include <span>

#include <velmora/libretro.h>

namespace demo {

// What a game file asks of the frontend, one "key = value" a line.
struct SceneSettings {
    retro_hw_context_type context = RETRO_HW_CONTEXT_OPENGL_CORE; // context = core | compat
    unsigned versionMajor = 0;                                    // version = 3.3
    unsigned versionMinor = 0;
    bool depth = true;            // depth = 0 | 1
    bool stencil = true;          // stencil = 0 | 1
    bool bottomLeftOrigin = true; // origin = bottom | top
    bool still = false;           // still = 1 stops the turning
    bool debugContext = false;    // debug = 1
    unsigned width = 320;         // size = 320x240
    unsigned height = 240;
    unsigned resizeAt = 0; // resize = 640x480@120, in the frame of that number
    unsigned resizedWidth = 0;
    unsigned resizedHeight = 0;
};

// Lines that make no sense leave the setting as it was.
SceneSettings readScene(std::span<const std::byte> file);

} // namespace demo
