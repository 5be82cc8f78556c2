#include "menu.h"

#include <velmora/action_codes.h>
#include <velmora/play_hud.h>

namespace player::menu {
namespace {

namespace action = velmora::action;

constexpr int pauseRows = action::quitToLibrary + 1;
constexpr int backRow = action::back - action::pickerSlot;
constexpr int columnRows = action::pickerSlotCount / 2;

int pauseRowAfter(int row, MenuKey direction) {
    switch (direction) {
    case MenuKey::up:
        return (row + pauseRows - 1) % pauseRows;
    case MenuKey::down:
        return (row + 1) % pauseRows;
    default:
        return row;
    }
}

int pickerRowAfter(int row, MenuKey direction) {
    const bool onBack = row == backRow;
    switch (direction) {
    case MenuKey::up:
        return onBack ? columnRows - 1 : row % columnRows == 0 ? backRow : row - 1;
    case MenuKey::down:
        return onBack ? 0 : row % columnRows == columnRows - 1 ? backRow : row + 1;
    case MenuKey::left:
    case MenuKey::right:
        return onBack ? backRow : (row + columnRows) % action::pickerSlotCount;
    default:
        return row;
    }
}

} // namespace

void show(velmora::PlayHud& hud, int screen, int selected) {
    hud.menuOpen = true;
    hud.screen = screen;
    hud.selected = selected;
}

void close(velmora::PlayHud& hud) { hud.menuOpen = false; }

void move(velmora::PlayHud& hud, MenuKey direction) {
    hud.selected = hud.screen == pauseScreen ? pauseRowAfter(hud.selected, direction)
                                             : pickerRowAfter(hud.selected, direction);
}

int selectedCode(const velmora::PlayHud& hud) {
    return hud.screen == pauseScreen ? hud.selected : hud.selected + action::pickerSlot;
}

void select(velmora::PlayHud& hud, int code) {
    const int first = hud.screen == pauseScreen ? action::resume : action::pickerSlot;
    const int last = hud.screen == pauseScreen ? action::quitToLibrary : action::back;
    if (code >= first && code <= last) {
        hud.selected = code - first;
    }
}

} // namespace player::menu
