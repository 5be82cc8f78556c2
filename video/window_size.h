#pragma once

#include <SDL3/SDL_rect.h>
#include <SDL3/SDL_video.h>

namespace velmora {

// In window units, which is what pointer events count in.
inline SDL_Point windowSize(SDL_Window* window) {
    SDL_Point size = {};
    SDL_GetWindowSize(window, &size.x, &size.y);
    return size;
}

inline SDL_Point windowSizeInPixels(SDL_Window* window) {
    SDL_Point size = {};
    SDL_GetWindowSizeInPixels(window, &size.x, &size.y);
    return size;
}

} // namespace velmora
