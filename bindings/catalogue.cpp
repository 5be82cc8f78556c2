#include "bindings/catalogue.h"

#include <algorithm>

namespace velmora {

namespace catalogue {
namespace {

constexpr int up = RETRO_DEVICE_ID_JOYPAD_UP;
constexpr int down = RETRO_DEVICE_ID_JOYPAD_DOWN;
constexpr int left = RETRO_DEVICE_ID_JOYPAD_LEFT;
constexpr int right = RETRO_DEVICE_ID_JOYPAD_RIGHT;
constexpr int a = RETRO_DEVICE_ID_JOYPAD_A;
constexpr int b = RETRO_DEVICE_ID_JOYPAD_B;
constexpr int x = RETRO_DEVICE_ID_JOYPAD_X;
constexpr int y = RETRO_DEVICE_ID_JOYPAD_Y;
constexpr int l = RETRO_DEVICE_ID_JOYPAD_L;
constexpr int r = RETRO_DEVICE_ID_JOYPAD_R;
constexpr int l2 = RETRO_DEVICE_ID_JOYPAD_L2;
constexpr int r2 = RETRO_DEVICE_ID_JOYPAD_R2;
constexpr int start = RETRO_DEVICE_ID_JOYPAD_START;
constexpr int select = RETRO_DEVICE_ID_JOYPAD_SELECT;

constexpr int twoButtons[] = {up, down, left, right, b, a, select, start};
constexpr int sixButtons[] = {up, down, left, right, y, b, a, start, l, r};
constexpr int fourAndShoulders[] = {up, down, left, right, b, a, y, x, l, r, select, start};
constexpr int fourAndTriggers[] = {up, down, left, right, b, a, y, x, l, r, select, start, l2, r2};

struct PadStyle {
    QStringView word;
    std::span<const int> buttons;
};

// All others have four buttons and shoulders: "gba", "nds", "psp", "gc" and "snes".
constexpr PadStyle padStyles[] = {
    {u"nes", twoButtons},      {u"sms", twoButtons},      {u"pce", twoButtons},
    {u"gg", twoButtons},       {u"lynx", twoButtons},     {u"ngp", twoButtons},
    {u"wswan", twoButtons},    {u"atari", twoButtons},    {u"stick", twoButtons},
    {u"vb", twoButtons},       {u"gb", twoButtons},       {u"genesis", sixButtons},
    {u"n64", fourAndTriggers}, {u"psx", fourAndTriggers},
};

struct System {
    QStringView id;
    QStringView padStyle;
};

constexpr QStringView fallbackStyle = u"snes";

constexpr System systems[] = {
    {u"nes", u"nes"},
    {u"fds", u"nes"},
    {u"snes", u"snes"},
    {u"genesis", u"genesis"},
    {u"sega32x", u"genesis"},
    {u"segacd", u"genesis"},
    {u"saturn", u"genesis"},
    {u"sms", u"sms"},
    {u"sg1000", u"sms"},
    {u"gg", u"gg"},
    {u"gb", u"gb"},
    {u"gba", u"gba"},
    {u"nds", u"nds"},
    {u"n64", u"n64"},
    {u"psx", u"psx"},
    {u"psp", u"psp"},
    {u"gc", u"gc"},
    {u"lynx", u"lynx"},
    {u"ngp", u"ngp"},
    {u"pce", u"pce"},
    {u"pcecd", u"pce"},
    {u"pcfx", u"pce"},
    {u"vb", u"vb"},
    {u"wswan", u"wswan"},
    {u"atari2600", u"atari"},
    {u"atari7800", u"atari"},
    {u"atari5200", u"atari"},
    {u"odyssey2", u"stick"},
    {u"vectrex", u"stick"},
    {u"coleco", u"stick"},
    {u"intellivision", u"stick"},
};

const Button* find(int buttonId) {
    const auto row = std::ranges::find(buttons, buttonId, &Button::id);
    return row == buttons.end() ? nullptr : &*row;
}

} // namespace

std::span<const int> buttonsOf(QStringView padStyle) {
    const auto row = std::ranges::find(padStyles, padStyle, &PadStyle::word);
    return row == std::end(padStyles) ? std::span<const int>(fourAndShoulders) : row->buttons;
}

} // namespace catalogue

// Initialised in the class; defined here so that a caller may take a reference to one.
const int InputBindings::Pause;
const int InputBindings::Reset;
const int InputBindings::QuickSave;
const int InputBindings::QuickLoad;
const int InputBindings::Screenshot;
const int InputBindings::Fullscreen;
const int InputBindings::Mute;
const int InputBindings::VolDown;
const int InputBindings::VolUp;
const int InputBindings::FastForward;

QString InputBindings::padStyleFor(const QString& systemId) {
    const auto row =
        std::ranges::find(catalogue::systems, QStringView(systemId), &catalogue::System::id);
    return (row == std::end(catalogue::systems) ? catalogue::fallbackStyle : row->padStyle)
        .toString();
}

QString InputBindings::buttonName(int buttonId) {
    const catalogue::Button* button = catalogue::find(buttonId);
    return (button ? button->name : QStringView(u"Button")).toString();
}

InputBindings::DefaultMap InputBindings::defaultsFor(int buttonId) {
    const catalogue::Button* button = catalogue::find(buttonId);
    return button ? DefaultMap{button->key, button->pad}
                  : DefaultMap{catalogue::noKey, catalogue::noPad};
}

} // namespace velmora
