#include <velmora/sdl_input.h>

#include <algorithm>
#include <iterator>
#include <span>

#include <QString>

#include <SDL3/SDL.h>
#include <velmora/input_bindings.h>
#include <velmora/libretro.h>

#include "bindings/catalogue.h"
#include "bindings/first_gamepad.h"
#include "support/no_throw.h"

namespace velmora {

namespace {

constexpr int buttonCount = 16;

// The buttons that play without an InputBindings object: up to R, by their defaults.
constexpr auto plainButtons = std::span(catalogue::buttons).first<RETRO_DEVICE_ID_JOYPAD_R + 1>();
static_assert(plainButtons.back().id == RETRO_DEVICE_ID_JOYPAD_R);

// Adds to `held` every button that `isHeld(system, button)` finds down.
template <class IsHeld>
void addBound(const std::string& systemId, bool (&held)[buttonCount], IsHeld&& isHeld) {
    noThrow([&] {
        const QString system = QString::fromStdString(systemId);
        for (int button = 0; button < buttonCount; ++button)
            held[button] = held[button] || isHeld(system, button);
    });
}

} // namespace

SdlInput::~SdlInput() { close(); }

void SdlInput::open() {
    close();
    if (!SDL_InitSubSystem(SDL_INIT_GAMEPAD))
        return;
    if (const SDL_JoystickID first = firstGamepad())
        pad = SDL_OpenGamepad(first);
}

void SdlInput::close() {
    if (pad) {
        SDL_CloseGamepad(pad);
        pad = nullptr;
    }
}

void SdlInput::poll() {
    std::fill(std::begin(held), std::end(held), false);
    escapeHeld = false;
    if (const bool* keys = SDL_GetKeyboardState(nullptr))
        applyKeyboard(keys);
    applyGamepad();
}

void SdlInput::applyKeyboard(const bool* keys) {
    if (!keys)
        return;
    escapeHeld = keys[SDL_SCANCODE_ESCAPE];
    if (const InputBindings* bindings = InputBindings::instance()) {
        addBound(systemId, held, [=](const QString& system, int button) {
            return bindings->keyboardHeld(system, button, keys);
        });
        return;
    }
    for (const catalogue::Button& button : plainButtons)
        held[button.id] = held[button.id] || keys[button.key];
}

void SdlInput::applyGamepad() {
    if (const InputBindings* bindings = InputBindings::instance()) {
        addBound(systemId, held, [this, bindings](const QString& system, int button) {
            return bindings->padHeld(system, button, pad);
        });
        return;
    }
    if (!pad)
        return;
    for (const catalogue::Button& button : plainButtons) {
        held[button.id] = held[button.id] ||
                          SDL_GetGamepadButton(pad, static_cast<SDL_GamepadButton>(button.pad));
    }
}

std::int16_t SdlInput::state(unsigned int port, unsigned int device, unsigned int /*index*/,
                             unsigned int id) const {
    if (port != 0 || device != RETRO_DEVICE_JOYPAD)
        return 0;
    if (id == RETRO_DEVICE_ID_JOYPAD_MASK) {
        unsigned int mask = 0;
        for (unsigned int button = 0; button < buttonCount; ++button) {
            if (held[button])
                mask |= 1U << button;
        }
        return static_cast<std::int16_t>(mask);
    }
    return id < buttonCount && held[id] ? 1 : 0;
}

} // namespace velmora
