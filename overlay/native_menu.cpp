#include <velmora/sdl_video.h>

#include <array>
#include <utility>

#include <velmora/action_codes.h>

#include "overlay/slot_menu.h"
#include "platform/native_menu.h"
#include "support/no_throw.h"

namespace velmora {
namespace {

enum class Entry { item, saveMenu, loadMenu, separator };

struct GameMenuRow {
    Entry entry;
    int id;
    const char* label;
};

// The keys behind the tabs are the defaults of the special actions; they are only shown.
constexpr std::array<GameMenuRow, 11> gameMenuRows = {{
    {Entry::item, action::pause, "Pause\tP"},
    {Entry::item, action::reset, "Reset\tF1"},
    {Entry::item, action::screenshot, "Screenshot\tF12"},
    {Entry::item, action::quickSave, "Quick Save\tF5"},
    {Entry::item, action::quickLoad, "Quick Load\tF8"},
    {Entry::saveMenu, action::none, "Save State"},
    {Entry::loadMenu, action::none, "Load State"},
    {Entry::item, action::fullscreen, "Fullscreen\tF11"},
    {Entry::item, action::alwaysOnTop, "Always on Top"},
    {Entry::separator, action::none, ""},
    {Entry::item, action::stop, "Stop\tEsc"},
}};

// Receives this process's menu messages; the newest object with a menu.
SdlVideo* menuOwner = nullptr;

void commandChosen(int id) {
    if (menuOwner)
        menuOwner->onNativeMenu(id);
}

void popupOpens(void* menu) {
    if (menuOwner)
        menuOwner->onInitMenuPopup(menu);
}

void appendRow(void* gameMenu, const GameMenuRow& row, void* saveMenu, void* loadMenu) {
    switch (row.entry) {
    case Entry::item:
        return platform::appendItem(gameMenu, row.id, row.label, true);
    case Entry::saveMenu:
        return platform::appendSubmenu(gameMenu, saveMenu, row.label);
    case Entry::loadMenu:
        return platform::appendSubmenu(gameMenu, loadMenu, row.label);
    case Entry::separator:
        return platform::appendSeparator(gameMenu);
    }
}

void empty(void* menu) {
    while (platform::removeFirstItem(menu)) {
    }
}

} // namespace

int SdlVideo::consumeMenuAction() {
    return menuAction >= 0 ? std::exchange(menuAction, action::none) : action::none;
}

void SdlVideo::onNativeMenu(int id) { menuAction = id; }

void SdlVideo::onInitMenuPopup(void* menu) {
    if (!menu || menu != gameMenu)
        return;
    rebuildSlotMenus();
    updateAlwaysOnTopMenu();
}

void SdlVideo::refreshNativeMenu() { rebuildSlotMenus(); }

void SdlVideo::attachNativeMenu() {
    if (!window || menuBar)
        return;
    buildNativeMenu();
    rebuildSlotMenus();
    updateAlwaysOnTopMenu();
    menuOwner = this;
    platform::installMessageHandling(window, {commandChosen, popupOpens});
    showNativeMenu(true);
}

void SdlVideo::buildNativeMenu() {
    menuBar = platform::createMenuBar();
    gameMenu = platform::createPopupMenu();
    saveMenu = platform::createPopupMenu();
    loadMenu = platform::createPopupMenu();
    if (!menuBar || !gameMenu || !saveMenu || !loadMenu) {
        // No menu then: a part of one could neither be shown nor be destroyed through its bar.
        for (void** menu : {&menuBar, &gameMenu, &saveMenu, &loadMenu})
            platform::destroyMenu(std::exchange(*menu, nullptr));
        return;
    }
    for (const GameMenuRow& row : gameMenuRows)
        appendRow(gameMenu, row, saveMenu, loadMenu);
    platform::appendSubmenu(menuBar, gameMenu, "Game");
}

void SdlVideo::rebuildSlotMenus() {
    if (!saveMenu || !loadMenu)
        return;
    empty(saveMenu);
    empty(loadMenu);
    noThrow([this] { fillSlotMenus(hud, saveMenu, loadMenu); });
}

void SdlVideo::showNativeMenu(bool show) {
    if (window && menuBar)
        platform::setMenuBar(window, show ? menuBar : nullptr);
}

void SdlVideo::updateAlwaysOnTopMenu() {
    platform::checkItem(gameMenu, action::alwaysOnTop, alwaysOnTop);
}

void SdlVideo::detachNativeMenu() {
    platform::detachMenuBar(window);
    if (menuOwner != this)
        return;
    platform::removeMessageHandling(window);
    menuOwner = nullptr;
}

void SdlVideo::destroyNativeMenu() {
    platform::destroyMenu(menuBar);
    menuBar = gameMenu = saveMenu = loadMenu = nullptr;
}

} // namespace velmora
