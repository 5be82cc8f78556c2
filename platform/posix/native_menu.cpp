#include "platform/native_menu.h"

#include <SDL3/SDL_properties.h>
#include <SDL3/SDL_video.h>

#include <memory>
#include <string>

#include <velmora/play_menu.h>

#include "support/no_throw.h"

namespace velmora::platform {
namespace {

using Kind = PlayMenuItem::Kind;

PlayMenu* asMenu(void* menu) { return static_cast<PlayMenu*>(menu); }

// More than the fixed items, so that hanging a popup into its parent finds room and cannot fail.
constexpr std::size_t startingRoom = 16;

void* createMenu() noexcept {
    return noThrowOr<void*>(nullptr, [] {
        auto menu = std::make_unique<PlayMenu>();
        menu->items.reserve(startingRoom);
        return menu.release();
    });
}

void append(void* menu, Kind kind, int id, std::string_view label, bool enabled,
            PlayMenu* submenu) noexcept {
    if (!menu)
        return;
    noThrow([&] {
        asMenu(menu)->items.push_back({kind, id, std::string(label), enabled, false, nullptr});
        asMenu(menu)->items.back().submenu.reset(submenu);
    });
}

} // namespace

void* createMenuBar() noexcept { return createMenu(); }

void* createPopupMenu() noexcept { return createMenu(); }

void destroyMenu(void* menu) noexcept { delete asMenu(menu); }

void appendItem(void* menu, int id, std::string_view label, bool enabled) noexcept {
    append(menu, Kind::item, id, label, enabled, nullptr);
}

void appendSubmenu(void* menu, void* submenu, std::string_view label) noexcept {
    append(menu, Kind::submenu, 0, label, true, asMenu(submenu));
}

void appendSeparator(void* menu) noexcept { append(menu, Kind::separator, 0, {}, true, nullptr); }

bool removeFirstItem(void* menu) noexcept {
    if (!menu || asMenu(menu)->items.empty())
        return false;
    asMenu(menu)->items.erase(asMenu(menu)->items.begin());
    return true;
}

void checkItem(void* menu, int id, bool checked) noexcept {
    if (!menu)
        return;
    for (PlayMenuItem& item : asMenu(menu)->items) {
        if (item.kind == Kind::item && item.id == id)
            item.checked = checked;
    }
}

void setMenuBar(SDL_Window* window, void* bar) noexcept {
    SDL_SetPointerProperty(SDL_GetWindowProperties(window), playMenuProperty, bar);
}

void detachMenuBar(SDL_Window* window) noexcept { setMenuBar(window, nullptr); }

// No messages come from a menu that the frontend shows itself: it calls SdlVideo::onInitMenuPopup
// and SdlVideo::onNativeMenu.
void installMessageHandling(SDL_Window*, const MenuEvents&) noexcept {}

void removeMessageHandling(SDL_Window*) noexcept {}

} // namespace velmora::platform
