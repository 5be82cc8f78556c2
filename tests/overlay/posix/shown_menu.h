#pragma once

#include <string>

#include <SDL3/SDL.h>
#include <velmora/play_menu.h>

// The menus that a window carries, as a frontend reads them.
namespace velmora::test {

using ShownMenu = PlayMenu*;

inline ShownMenu shownBar(SDL_Window* window) {
    return static_cast<ShownMenu>(
        SDL_GetPointerProperty(SDL_GetWindowProperties(window), playMenuProperty, nullptr));
}

inline ShownMenu submenu(ShownMenu menu, std::size_t position) {
    return menu->items.at(position).submenu.get();
}

// One line an item: its id and label, and a mark where it is greyed or checked.
inline std::string lines(ShownMenu menu) {
    using Kind = PlayMenuItem::Kind;
    std::string text;
    for (const PlayMenuItem& item : menu->items) {
        const bool hasId = item.kind == Kind::item || item.id != 0;
        text += hasId ? std::to_string(item.id) : item.kind == Kind::separator ? "--" : ">";
        text += " " + item.label + (item.enabled ? "" : " (greyed)");
        text += item.checked ? " (checked)\n" : "\n";
    }
    return text;
}

// What comes of the bytes FF and C0, which are no UTF-8.
constexpr const char* shownInvalid = "\xFF\xC0";

} // namespace velmora::test
