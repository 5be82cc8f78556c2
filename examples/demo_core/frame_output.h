#pragma once

#include <velmora/libretro.h>

#include "canvas.h"

namespace demo {

// Agrees on a pixel format with the frontend and returns it: the wanted one, or the one that every
// frontend starts with.
retro_pixel_format negotiateFormat(retro_environment_t environment, retro_pixel_format wanted);

// Hands the picture over, converted to the format.
void sendFrame(retro_video_refresh_t refresh, const Canvas& canvas, retro_pixel_format format);

} // namespace demo
