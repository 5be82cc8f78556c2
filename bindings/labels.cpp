#include <velmora/input_bindings.h>

#include <algorithm>
#include <array>

#include <SDL3/SDL.h>

#include "bindings/catalogue.h"
#include "support/no_throw.h"

namespace velmora {

using namespace Qt::StringLiterals;

namespace {

QString keyName(int code) {
    const char* name =
        catalogue::isKey(code) ? SDL_GetScancodeName(static_cast<SDL_Scancode>(code)) : nullptr;
    return name && *name ? QString::fromUtf8(name) : u"Key %1"_s.arg(code);
}

QString shortKeyName(const QString& name) {
    static const QHash<QString, QString> shortNames{
        {u"Right Shift"_s, u"RShift"_s},  {u"Left Shift"_s, u"LShift"_s},
        {u"Right Ctrl"_s, u"RCtrl"_s},    {u"Left Ctrl"_s, u"LCtrl"_s},
        {u"Right Control"_s, u"RCtrl"_s}, {u"Left Control"_s, u"LCtrl"_s},
        {u"Right Alt"_s, u"RAlt"_s},      {u"Left Alt"_s, u"LAlt"_s},
        {u"Caps Lock"_s, u"Caps"_s},      {u"Backspace"_s, u"Bksp"_s},
        {u"Return"_s, u"Enter"_s},        {u"Keypad Enter"_s, u"Enter"_s},
    };
    return shortNames.value(name, name);
}

// What a pad's own button is called, whatever system it plays.
struct PadText {
    SDL_GamepadButton button;
    QStringView name;
    QStringView shortName;
};

constexpr std::array<PadText, 15> padTexts{{
    {SDL_GAMEPAD_BUTTON_SOUTH, u"A / Cross", u"A"},
    {SDL_GAMEPAD_BUTTON_EAST, u"B / Circle", u"B"},
    {SDL_GAMEPAD_BUTTON_WEST, u"X / Square", u"X"},
    {SDL_GAMEPAD_BUTTON_NORTH, u"Y / Triangle", u"Y"},
    {SDL_GAMEPAD_BUTTON_BACK, u"Back / Select", u"Select"},
    {SDL_GAMEPAD_BUTTON_GUIDE, u"Guide", u"Guide"},
    {SDL_GAMEPAD_BUTTON_START, u"Start", u"Start"},
    {SDL_GAMEPAD_BUTTON_LEFT_STICK, u"Left Stick", u"LS"},
    {SDL_GAMEPAD_BUTTON_RIGHT_STICK, u"Right Stick", u"RS"},
    {SDL_GAMEPAD_BUTTON_LEFT_SHOULDER, u"Left Shoulder", u"LB"},
    {SDL_GAMEPAD_BUTTON_RIGHT_SHOULDER, u"Right Shoulder", u"RB"},
    {SDL_GAMEPAD_BUTTON_DPAD_UP, u"D-Pad Up", u"Up"},
    {SDL_GAMEPAD_BUTTON_DPAD_DOWN, u"D-Pad Down", u"Down"},
    {SDL_GAMEPAD_BUTTON_DPAD_LEFT, u"D-Pad Left", u"Left"},
    {SDL_GAMEPAD_BUTTON_DPAD_RIGHT, u"D-Pad Right", u"Right"},
}};

QString padText(int code, QStringView PadText::*text) {
    const auto row = std::ranges::find(padTexts, code, &PadText::button);
    return row == padTexts.end() ? u"Button %1"_s.arg(code) : ((*row).*text).toString();
}

QString padName(int code) { return padText(code, &PadText::name); }

QString padShortName(int code) { return padText(code, &PadText::shortName); }

struct Binding {
    QString kind;
    int code;
};

// The binding that a button has on the device before anything is stored.
Binding defaultBinding(const QString& device, InputBindings::DefaultMap defaults) {
    if (device == "gamepad"_L1)
        return {defaults.pad >= 0 ? u"pad"_s : u"none"_s, defaults.pad};
    return {defaults.key > 0 ? u"key"_s : u"none"_s, defaults.key};
}

} // namespace

QString InputBindings::bindingLabel(int buttonId) const {
    return noThrowOr(QString(), [&] {
        Binding binding = defaultBinding(device_, defaultsFor(buttonId));
        loadBinding(device_, systemId_, buttonId, &binding.kind, &binding.code);
        if (binding.kind == "key"_L1)
            return keyName(binding.code);
        return binding.kind == "pad"_L1 ? padName(binding.code) : u"None"_s;
    });
}

QString InputBindings::bindingCaption(int buttonId) const {
    return noThrowOr(QString(), [&] {
        Binding binding = defaultBinding(device_, defaultsFor(buttonId));
        loadBinding(device_, systemId_, buttonId, &binding.kind, &binding.code);
        if (binding.kind == "key"_L1)
            return shortKeyName(keyName(binding.code));
        return binding.kind == "pad"_L1 ? padShortName(binding.code) : QString();
    });
}

} // namespace velmora
