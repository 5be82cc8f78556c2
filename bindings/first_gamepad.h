#pragma once

#include <memory>

#include <SDL3/SDL.h>

namespace velmora {

// The only gamepad that is ever played or captured: the first in SDL's list, 0 with none connected.
inline SDL_JoystickID firstGamepad() {
    // The list ends with a 0.
    const std::unique_ptr<SDL_JoystickID, decltype(&SDL_free)> ids(SDL_GetGamepads(nullptr),
                                                                   SDL_free);
    return ids ? *ids : 0;
}

} // namespace velmora
