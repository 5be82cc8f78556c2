#pragma once

#include <cstdint>

#include <velmora/libretro.h>

namespace demo {

// Gives the frontend a label for each button the game uses.
void describeButtons(retro_environment_t environment);

// Remembers whether the frontend answers all buttons in one question.
void openGamepad(retro_environment_t environment);

// The game's buttons held on the first port.
std::uint32_t heldButtons(retro_input_state_t inputState);

} // namespace demo
