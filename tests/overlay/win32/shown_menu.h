#pragma once

#include <string>

#include <windows.h>

#include <QString>

#include <SDL3/SDL.h>

// The menus that a window carries, as the system has them.
namespace velmora::test {

using ShownMenu = HMENU;

inline HWND nativeHandle(SDL_Window* window) {
    return static_cast<HWND>(SDL_GetPointerProperty(SDL_GetWindowProperties(window),
                                                    SDL_PROP_WINDOW_WIN32_HWND_POINTER, nullptr));
}

inline ShownMenu shownBar(SDL_Window* window) { return GetMenu(nativeHandle(window)); }

inline ShownMenu submenu(ShownMenu menu, std::size_t position) {
    return GetSubMenu(menu, static_cast<int>(position));
}

// A label as it is drawn: two ampersands show as one, and one not at all.
inline std::string drawn(const std::wstring& label) {
    return QString::fromStdWString(label)
        .replace("&&", "\x01")
        .remove('&')
        .replace('\x01', '&')
        .toStdString();
}

inline std::string line(ShownMenu menu, int position) {
    std::wstring label(20'000, L'\0');
    MENUITEMINFOW item = {};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    item.dwTypeData = label.data();
    item.cch = static_cast<UINT>(label.size());
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item);
    const bool separator = (item.fType & MFT_SEPARATOR) != 0;
    label.resize(separator ? 0 : item.cch);
    const std::string kind = separator ? "--" : item.hSubMenu ? ">" : std::to_string(item.wID);
    return kind + " " + drawn(label) +
           (!separator && (item.fState & MFS_GRAYED) != 0 ? " (greyed)" : "") +
           ((item.fState & MFS_CHECKED) != 0 ? " (checked)\n" : "\n");
}

// One line an item: its id and label, and a mark where it is greyed or checked.
inline std::string lines(ShownMenu menu) {
    std::string text;
    for (int position = 0; position < GetMenuItemCount(menu); ++position)
        text += line(menu, position);
    return text;
}

// What comes of the bytes FF and C0, which are no UTF-8: a replacement character each.
constexpr const char* shownInvalid = "\xEF\xBF\xBD\xEF\xBF\xBD";

} // namespace velmora::test
