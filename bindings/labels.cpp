#include <velmora/input_bindings.h>

#include <algorithm>

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

QString shortKeyNameOf(int code) { return shortKeyName(keyName(code)); }

QString padText(int code, QStringView catalogue::PadText::*text) {
    const auto row = std::ranges::find(catalogue::padTexts, code, &catalogue::PadText::button);
    return row == catalogue::padTexts.end() ? u"Button %1"_s.arg(code) : ((*row).*text).toString();
}

QString padName(int code) { return padText(code, &catalogue::PadText::name); }

QString padShortName(int code) { return padText(code, &catalogue::PadText::shortName); }

struct Binding {
    QString kind;
    int code;
};

// One way of putting a binding into words.
struct Wording {
    QString (*key)(int code);
    QString (*pad)(int code);
    QLatin1StringView none;

    QString operator()(const Binding& binding) const {
        if (binding.kind == "key"_L1)
            return key(binding.code);
        return binding.kind == "pad"_L1 ? pad(binding.code) : QString(none);
    }
};

constexpr Wording label{keyName, padName, "None"_L1};
constexpr Wording caption{shortKeyNameOf, padShortName, ""_L1};

// The binding that a button has on the device before anything is stored.
Binding defaultBinding(const QString& device, InputBindings::DefaultMap defaults) {
    if (device == "gamepad"_L1)
        return {defaults.pad >= 0 ? u"pad"_s : u"none"_s, defaults.pad};
    return {defaults.key > 0 ? u"key"_s : u"none"_s, defaults.key};
}

} // namespace

QString InputBindings::bindingLabel(int buttonId) const {
    return orElse(QString(), [&] {
        Binding binding = defaultBinding(device_, defaultsFor(buttonId));
        loadBinding(device_, systemId_, buttonId, &binding.kind, &binding.code);
        return label(binding);
    });
}

QString InputBindings::bindingCaption(int buttonId) const {
    return orElse(QString(), [&] {
        Binding binding = defaultBinding(device_, defaultsFor(buttonId));
        loadBinding(device_, systemId_, buttonId, &binding.kind, &binding.code);
        return caption(binding);
    });
}

} // namespace velmora
