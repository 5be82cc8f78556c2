#pragma once

#include <Qt>

#include <SDL3/SDL.h>

namespace velmora {

// Qt keys that can be bound, as runs that both numberings count up alike.
struct QtKeyRun {
    Qt::Key first;
    Qt::Key last;
    SDL_Scancode scancode;
};

// Qt does not tell left from right, nor the keypad from the main rows: modifiers give their left
// key, keypad digits the digits of the main row.
inline constexpr QtKeyRun qtKeyMap[] = {
    {Qt::Key_A, Qt::Key_Z, SDL_SCANCODE_A},
    {Qt::Key_1, Qt::Key_9, SDL_SCANCODE_1},
    {Qt::Key_0, Qt::Key_0, SDL_SCANCODE_0},
    {Qt::Key_Return, Qt::Key_Return, SDL_SCANCODE_RETURN},
    {Qt::Key_Enter, Qt::Key_Enter, SDL_SCANCODE_RETURN},
    {Qt::Key_Backspace, Qt::Key_Backspace, SDL_SCANCODE_BACKSPACE},
    {Qt::Key_Tab, Qt::Key_Tab, SDL_SCANCODE_TAB},
    {Qt::Key_Space, Qt::Key_Space, SDL_SCANCODE_SPACE},
    {Qt::Key_Minus, Qt::Key_Minus, SDL_SCANCODE_MINUS},
    {Qt::Key_Equal, Qt::Key_Equal, SDL_SCANCODE_EQUALS},
    {Qt::Key_BracketLeft, Qt::Key_BracketLeft, SDL_SCANCODE_LEFTBRACKET},
    {Qt::Key_BracketRight, Qt::Key_BracketRight, SDL_SCANCODE_RIGHTBRACKET},
    {Qt::Key_Backslash, Qt::Key_Backslash, SDL_SCANCODE_BACKSLASH},
    {Qt::Key_Semicolon, Qt::Key_Semicolon, SDL_SCANCODE_SEMICOLON},
    {Qt::Key_Apostrophe, Qt::Key_Apostrophe, SDL_SCANCODE_APOSTROPHE},
    {Qt::Key_Comma, Qt::Key_Comma, SDL_SCANCODE_COMMA},
    {Qt::Key_Period, Qt::Key_Period, SDL_SCANCODE_PERIOD},
    {Qt::Key_Slash, Qt::Key_Slash, SDL_SCANCODE_SLASH},
    {Qt::Key_F1, Qt::Key_F12, SDL_SCANCODE_F1},
    {Qt::Key_Right, Qt::Key_Right, SDL_SCANCODE_RIGHT},
    {Qt::Key_Left, Qt::Key_Left, SDL_SCANCODE_LEFT},
    {Qt::Key_Down, Qt::Key_Down, SDL_SCANCODE_DOWN},
    {Qt::Key_Up, Qt::Key_Up, SDL_SCANCODE_UP},
    {Qt::Key_Control, Qt::Key_Control, SDL_SCANCODE_LCTRL},
    {Qt::Key_Shift, Qt::Key_Shift, SDL_SCANCODE_LSHIFT},
    {Qt::Key_Alt, Qt::Key_Alt, SDL_SCANCODE_LALT},
};

// The SDL scancode of a Qt key, SDL_SCANCODE_UNKNOWN for a key that cannot be bound.
constexpr int scancodeForQtKey(int key) {
    for (const QtKeyRun& run : qtKeyMap)
        if (key >= run.first && key <= run.last)
            return run.scancode + (key - run.first);
    return SDL_SCANCODE_UNKNOWN;
}

} // namespace velmora
