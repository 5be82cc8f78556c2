#include <velmora/input_bindings.h>

#include <SDL3/SDL.h>

#include "bindings/catalogue.h"

// Members that read no field of the object: the thread that runs a core may call them while a
// settings page is at work.
namespace velmora {

using namespace Qt::StringLiterals;

int InputBindings::keyboardScancode(const QString& systemId, int button) const {
    QString kind;
    int code = 0;
    if (loadBinding(u"keyboard"_s, systemId, button, &kind, &code) && kind == "key"_L1)
        return code;
    return kind == "none"_L1 ? catalogue::noKey : defaultsFor(button).key;
}

int InputBindings::padButton(const QString& systemId, int button) const {
    QString kind;
    int code = 0;
    if (loadBinding(u"gamepad"_s, systemId, button, &kind, &code) && kind == "pad"_L1)
        return code;
    return kind == "none"_L1 ? catalogue::noPad : defaultsFor(button).pad;
}

bool InputBindings::keyboardHeld(const QString& systemId, int button, const bool* keys) const {
    if (!keys)
        return false;
    const int scancode = keyboardScancode(systemId, button);
    return catalogue::isKey(scancode) && keys[scancode];
}

bool InputBindings::padHeld(const QString& systemId, int button, SDL_Gamepad* pad) const {
    if (!pad)
        return false;
    const int code = padButton(systemId, button);
    return catalogue::isPadButton(code) &&
           SDL_GetGamepadButton(pad, static_cast<SDL_GamepadButton>(code));
}

bool InputBindings::specialHeld(int special, const bool* keys, SDL_Gamepad* pad) const {
    const QString everySystem = u"special"_s;
    return keyboardHeld(everySystem, special, keys) || padHeld(everySystem, special, pad);
}

} // namespace velmora
