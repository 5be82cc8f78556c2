#pragma once

#include <array>
#include <span>

#include <QStringView>

#include <SDL3/SDL.h>
#include <velmora/input_bindings.h>
#include <velmora/libretro.h>

// The fixed vocabulary of the controls: every button with its name and defaults, and which buttons
// a style of pad shows.
namespace velmora::catalogue {

struct Button {
    int id;
    QStringView name;
    int key; // SDL scancode
    int pad; // SDL gamepad button
};

inline constexpr int noKey = 0;
inline constexpr int noPad = -1;

// Codes that name a real key, or a real pad button. A store edited by hand holds others too.
constexpr bool isKey(int code) { return code > SDL_SCANCODE_UNKNOWN && code < SDL_SCANCODE_COUNT; }
constexpr bool isPadButton(int code) { return code >= 0 && code < SDL_GAMEPAD_BUTTON_COUNT; }

// Special actions are stored once per device, joypad buttons once per system.
constexpr bool isSpecial(int buttonId) { return buttonId >= InputBindings::Pause; }

// Joypad buttons, then special actions, each by ascending id. The defaults of A and B, and of X and
// Y, are those of the same place on the pad, not those of the same letter.
// clang-format off
inline constexpr std::array<Button, 24> buttons{{
    {RETRO_DEVICE_ID_JOYPAD_B,      u"B",            SDL_SCANCODE_Z,      SDL_GAMEPAD_BUTTON_SOUTH},
    {RETRO_DEVICE_ID_JOYPAD_Y,      u"Y",            SDL_SCANCODE_A,      SDL_GAMEPAD_BUTTON_WEST},
    {RETRO_DEVICE_ID_JOYPAD_SELECT, u"Select",       SDL_SCANCODE_RSHIFT, SDL_GAMEPAD_BUTTON_BACK},
    {RETRO_DEVICE_ID_JOYPAD_START,  u"Start",        SDL_SCANCODE_RETURN, SDL_GAMEPAD_BUTTON_START},
    {RETRO_DEVICE_ID_JOYPAD_UP,     u"Up",           SDL_SCANCODE_UP,     SDL_GAMEPAD_BUTTON_DPAD_UP},
    {RETRO_DEVICE_ID_JOYPAD_DOWN,   u"Down",         SDL_SCANCODE_DOWN,   SDL_GAMEPAD_BUTTON_DPAD_DOWN},
    {RETRO_DEVICE_ID_JOYPAD_LEFT,   u"Left",         SDL_SCANCODE_LEFT,   SDL_GAMEPAD_BUTTON_DPAD_LEFT},
    {RETRO_DEVICE_ID_JOYPAD_RIGHT,  u"Right",        SDL_SCANCODE_RIGHT,  SDL_GAMEPAD_BUTTON_DPAD_RIGHT},
    {RETRO_DEVICE_ID_JOYPAD_A,      u"A",            SDL_SCANCODE_X,      SDL_GAMEPAD_BUTTON_EAST},
    {RETRO_DEVICE_ID_JOYPAD_X,      u"X",            SDL_SCANCODE_S,      SDL_GAMEPAD_BUTTON_NORTH},
    {RETRO_DEVICE_ID_JOYPAD_L,      u"L / Z",        SDL_SCANCODE_Q,      SDL_GAMEPAD_BUTTON_LEFT_SHOULDER},
    {RETRO_DEVICE_ID_JOYPAD_R,      u"R",            SDL_SCANCODE_W,      SDL_GAMEPAD_BUTTON_RIGHT_SHOULDER},
    {RETRO_DEVICE_ID_JOYPAD_L2,     u"L2 / C-Left",  SDL_SCANCODE_1,      SDL_GAMEPAD_BUTTON_LEFT_SHOULDER},
    {RETRO_DEVICE_ID_JOYPAD_R2,     u"R2 / C-Right", SDL_SCANCODE_2,      SDL_GAMEPAD_BUTTON_RIGHT_SHOULDER},
    {InputBindings::Pause,          u"Pause",        SDL_SCANCODE_P,      SDL_GAMEPAD_BUTTON_GUIDE},
    {InputBindings::Reset,          u"Reset",        SDL_SCANCODE_F1,     noPad},
    {InputBindings::QuickSave,      u"Quick Save",   SDL_SCANCODE_F5,     noPad},
    {InputBindings::QuickLoad,      u"Quick Load",   SDL_SCANCODE_F8,     noPad},
    {InputBindings::Screenshot,     u"Screenshot",   SDL_SCANCODE_F12,    noPad},
    {InputBindings::Fullscreen,     u"Fullscreen",   SDL_SCANCODE_F11,    noPad},
    {InputBindings::Mute,           u"Mute",         SDL_SCANCODE_M,      noPad},
    {InputBindings::VolDown,        u"Volume Down",  SDL_SCANCODE_MINUS,  noPad},
    {InputBindings::VolUp,          u"Volume Up",    SDL_SCANCODE_EQUALS, noPad},
    {InputBindings::FastForward,    u"Fast Forward", SDL_SCANCODE_TAB,    noPad},
}};
// clang-format on

// Ids of the buttons that a pad of this style shows, in the order of a page.
std::span<const int> buttonsOf(QStringView padStyle);

} // namespace velmora::catalogue
