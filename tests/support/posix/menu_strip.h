#pragma once

#include <SDL3/SDL_video.h>

namespace velmora::test {

// The height that the menu bar takes of a window.
inline int menuStrip(SDL_Window* /*window*/) { return 0; }

} // namespace velmora::test
