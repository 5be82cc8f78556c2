#pragma once

#include <memory>
#include <string>
#include <vector>

namespace velmora {

// The play window's menu as plain data, on systems where SDL windows carry no native menu bar. A
// frontend shows it by its own means, or not at all; on Windows the real bar hangs on the window
// instead and none of this exists.
//
// While the bar is shown, the window's SDL properties hold a `const PlayMenu*` to it:
//
//     SDL_GetPointerProperty(SDL_GetWindowProperties(window), velmora::playMenuProperty, nullptr)
//
// It is null in fullscreen and without a menu. The window is found with SDL_GetWindows. The bar
// holds one item, the "Game" popup.
//
// Before the popup is opened, its handle goes to SdlVideo::onInitMenuPopup, which refills the slot
// lists: `onInitMenuPopup(bar->items[0].submenu.get())`. The id of a chosen item goes to
// SdlVideo::onNativeMenu and comes back from SdlVideo::consumeMenuAction.
//
// The library owns all of it; read only, on the thread that owns the window. Bar and popups live
// until SdlVideo::destroy or a `create` that replaces the window. The items of the "Save State" and
// "Load State" submenus are replaced whenever their lists are refilled, so keep no reference to
// them.
struct PlayMenu;

struct PlayMenuItem {
    enum class Kind { item, submenu, separator };

    Kind kind = Kind::item;

    // The action code of an item, see velmora/action_codes.h; 0 for the other kinds.
    int id = 0;

    // UTF-8 and as the frontend gave it, malformed parts included. What follows a tab character
    // names a key and belongs at the right edge. Empty for a separator.
    std::string label;

    // False: shown, but not to be chosen.
    bool enabled = true;

    bool checked = false;

    // The popup behind a submenu, null for the other kinds.
    std::unique_ptr<PlayMenu> submenu;
};

struct PlayMenu {
    std::vector<PlayMenuItem> items;
};

inline constexpr const char* playMenuProperty = "velmora.menu.bar";

} // namespace velmora
