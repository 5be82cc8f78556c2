#include "controls.h"

#include <SDL3/SDL_gamepad.h>
#include <SDL3/SDL_keyboard.h>

#include <velmora/input_bindings.h>

namespace player {
namespace {

using velmora::InputBindings;

struct MenuKeyRow {
    MenuKey key;
    SDL_Scancode scancode;
    SDL_Scancode otherScancode;
    SDL_GamepadButton button;
};

constexpr MenuKeyRow menuKeys[] = {
    {MenuKey::up, SDL_SCANCODE_UP, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_DPAD_UP},
    {MenuKey::down, SDL_SCANCODE_DOWN, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_DPAD_DOWN},
    {MenuKey::left, SDL_SCANCODE_LEFT, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_DPAD_LEFT},
    {MenuKey::right, SDL_SCANCODE_RIGHT, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_DPAD_RIGHT},
    {MenuKey::confirm, SDL_SCANCODE_RETURN, SDL_SCANCODE_KP_ENTER, SDL_GAMEPAD_BUTTON_SOUTH},
    {MenuKey::back, SDL_SCANCODE_BACKSPACE, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_EAST},
    {MenuKey::escape, SDL_SCANCODE_ESCAPE, SDL_SCANCODE_UNKNOWN, SDL_GAMEPAD_BUTTON_INVALID},
};

} // namespace

void Controls::read(const InputBindings& bindings, SDL_Gamepad* pad) {
    before = now;
    // Not SdlInput::escapeHeld and its like: those are as old as the core's last poll, and a paused
    // core polls nothing.
    const bool* keys = SDL_GetKeyboardState(nullptr);

    for (std::size_t i = 0; i < specialCount; ++i) {
        now[i] = bindings.specialHeld(InputBindings::Pause + static_cast<int>(i), keys, pad);
    }
    for (const MenuKeyRow& row : menuKeys) {
        now[menuBit(row.key)] =
            keys[row.scancode] || keys[row.otherScancode] || SDL_GetGamepadButton(pad, row.button);
    }
}

std::size_t Controls::specialBit(int special) {
    return static_cast<std::size_t>(special - InputBindings::Pause);
}

} // namespace player
