#pragma once

#include <string_view>

struct SDL_Window;

// Menus the way the system does them. A handle is a menu or a bar; null is taken everywhere and
// does nothing. Nothing throws, and a step that the system refuses goes unnoticed. Labels are
// UTF-8; what follows a tab character is the accelerator column.
namespace velmora::platform {

// What the system reports: the id of a chosen item, and the handle of a popup about to open. Called
// on the thread that owns the window, while events are pumped.
struct MenuEvents {
    void (*command)(int id);
    void (*popupOpens)(void* menu);
};

void* createMenuBar() noexcept;
void* createPopupMenu() noexcept;

// Destroys a menu with every submenu in it.
void destroyMenu(void* menu) noexcept;

// Each adds at the end. `appendSubmenu` hands `submenu` over to `menu`.
void appendItem(void* menu, int id, std::string_view label, bool enabled) noexcept;
void appendSubmenu(void* menu, void* submenu, std::string_view label) noexcept;
void appendSeparator(void* menu) noexcept;

// False when nothing was left to remove. Not for a submenu.
bool removeFirstItem(void* menu) noexcept;

// The check mark of the item with the id.
void checkItem(void* menu, int id, bool checked) noexcept;

// Hangs the bar on the window, which grows downwards by it; null takes the present bar off, which
// goes on existing, and leaves the client area in its place. A window that fills the screen stays
// as it is.
void setMenuBar(SDL_Window* window, void* bar) noexcept;

// Takes the bar off a window on its way to destruction, which is neither moved nor resized for it.
void detachMenuBar(SDL_Window* window) noexcept;

// Lets the window's menu messages reach `events`, the newest only, until they are removed. A late
// one may still come.
void installMessageHandling(SDL_Window* window, const MenuEvents& events) noexcept;
void removeMessageHandling(SDL_Window* window) noexcept;

} // namespace velmora::platform
