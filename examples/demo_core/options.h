#pragma once

#include <cstdint>

#include <velmora/libretro.h>

#include "scene.h"

namespace demo {

struct Options {
    Season season{};
    std::int32_t fallSpeed{};
    retro_pixel_format pixelFormat{};
};

// Tells the frontend which options there are, in the newest of the three forms that both the
// frontend and this build of the core know.
void declareOptions(retro_environment_t environment);

// The values in force; an option that the frontend does not hold has its first choice.
Options readOptions(retro_environment_t environment);

} // namespace demo
