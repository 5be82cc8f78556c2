#pragma once

#include <SDL3/SDL_surface.h>

#include <memory>

namespace velmora {

struct SurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_DestroySurface(surface); }
};

using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

} // namespace velmora
