#pragma once

#include <algorithm>
#include <initializer_list>

#include <SDL3/SDL.h>

namespace velmora::test {

// A gamepad of SDL's virtual driver, plugged in for the object's lifetime.
class VirtualPad {
public:
    explicit VirtualPad(const char* name = "Test Pad") {
        SDL_InitSubSystem(SDL_INIT_GAMEPAD);
        SDL_VirtualJoystickDesc description;
        SDL_INIT_INTERFACE(&description);
        description.type = SDL_JOYSTICK_TYPE_GAMEPAD;
        description.nbuttons = SDL_GAMEPAD_BUTTON_COUNT;
        description.button_mask = (1U << SDL_GAMEPAD_BUTTON_COUNT) - 1;
        description.name = name;
        id = SDL_AttachVirtualJoystick(&description);
    }
    ~VirtualPad() { unplug(); }
    VirtualPad(const VirtualPad&) = delete;
    VirtualPad& operator=(const VirtualPad&) = delete;

    // Nothing but these is down. The pad is open only while this runs, so that who looks next has
    // to open it and find it so.
    void hold(std::initializer_list<int> buttons) const {
        SDL_Joystick* joystick = SDL_OpenJoystick(id);
        for (int button = 0; button < SDL_GAMEPAD_BUTTON_COUNT; ++button)
            SDL_SetJoystickVirtualButton(joystick, button, std::ranges::count(buttons, button) > 0);
        SDL_CloseJoystick(joystick);
    }

    // SDL gives no number twice, so that the second time does nothing.
    void unplug() const { SDL_DetachVirtualJoystick(id); }

    SDL_JoystickID id = 0;
};

} // namespace velmora::test
