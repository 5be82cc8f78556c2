#include "platform/native_menu.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <SDL3/SDL_properties.h>
#include <SDL3/SDL_system.h>
#include <SDL3/SDL_video.h>

#include <string>
#include <utility>

#include "support/no_throw.h"

namespace velmora::platform {
namespace {

// Both null while nobody receives.
MenuEvents receiver = {nullptr, nullptr};

// What the subclass displaced; null while no subclass is in place.
WNDPROC previousWindowProc = nullptr;

HMENU asMenu(void* menu) { return static_cast<HMENU>(menu); }

// Asked anew each time: SDL may give its window another handle.
HWND nativeHandle(SDL_Window* window) {
    return static_cast<HWND>(SDL_GetPointerProperty(SDL_GetWindowProperties(window),
                                                    SDL_PROP_WINDOW_WIN32_HWND_POINTER, nullptr));
}

std::wstring toWide(std::string_view text) {
    if (text.empty() || !std::in_range<int>(text.size()))
        return {};
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), length);
    return wide;
}

// A single ampersand would underline the letter behind it instead of being shown.
std::wstring shown(std::wstring label) {
    for (std::size_t at = label.find(L'&'); at != label.npos; at = label.find(L'&', at + 2))
        label.insert(at, 1, L'&');
    return label;
}

void append(void* menu, UINT flags, UINT_PTR id, std::string_view label) noexcept {
    noThrow([&] { AppendMenuW(asMenu(menu), flags, id, shown(toWide(label)).c_str()); });
}

void deliver(UINT message, WPARAM wParam) {
    if (!receiver.command)
        return;
    if (message == WM_COMMAND)
        receiver.command(LOWORD(wParam));
    else if (message == WM_INITMENUPOPUP)
        receiver.popupOpens(reinterpret_cast<void*>(wParam));
}

LRESULT CALLBACK menuWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    deliver(message, wParam);
    if (previousWindowProc)
        return CallWindowProcW(previousWindowProc, window, message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

// Sees the messages that SDL's own loop fetches. A message may pass here and through the window
// procedure; the second pass repeats the first without harm. True lets SDL treat it as usual.
bool SDLCALL menuMessageHook(void*, MSG* message) {
    if (message)
        deliver(message->message, message->wParam);
    return true;
}

WNDPROC replaceWindowProc(HWND handle, WNDPROC procedure) {
    const LONG_PTR replaced =
        SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    return reinterpret_cast<WNDPROC>(replaced);
}

} // namespace

void* createMenuBar() noexcept { return CreateMenu(); }

void* createPopupMenu() noexcept { return CreatePopupMenu(); }

void destroyMenu(void* menu) noexcept {
    if (menu)
        DestroyMenu(asMenu(menu));
}

void appendItem(void* menu, int id, std::string_view label, bool enabled) noexcept {
    append(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED, static_cast<UINT_PTR>(id), label);
}

void appendSubmenu(void* menu, void* submenu, std::string_view label) noexcept {
    append(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(submenu), label);
}

void appendSeparator(void* menu) noexcept { AppendMenuW(asMenu(menu), MF_SEPARATOR, 0, nullptr); }

int itemCount(void* menu) noexcept { return GetMenuItemCount(asMenu(menu)); }

bool removeFirstItem(void* menu) noexcept { return DeleteMenu(asMenu(menu), 0, MF_BYPOSITION); }

void checkItem(void* menu, int id, bool checked) noexcept {
    if (menu)
        CheckMenuItem(asMenu(menu), static_cast<UINT>(id), checked ? MF_CHECKED : MF_UNCHECKED);
}

void attachToWindow(SDL_Window* window, void* bar) noexcept {
    const HWND handle = nativeHandle(window);
    if (!handle)
        return;
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    SetMenu(handle, asMenu(bar));
    DrawMenuBar(handle);
    // The bar takes its strip from the picture, which would start smaller than it was made and grow
    // by the strip with each way through fullscreen. A window that fills the screen is to stay so.
    if ((SDL_GetWindowFlags(window) & (SDL_WINDOW_FULLSCREEN | SDL_WINDOW_MAXIMIZED)) == 0)
        SDL_SetWindowSize(window, width, height);
}

void installMessageHandling(SDL_Window* window, const MenuEvents& events) noexcept {
    receiver = events;
    const HWND handle = nativeHandle(window);
    if (handle && !previousWindowProc)
        previousWindowProc = replaceWindowProc(handle, menuWindowProc);
    SDL_SetWindowsMessageHook(menuMessageHook, nullptr);
}

void removeMessageHandling(SDL_Window* window) noexcept {
    const HWND handle = nativeHandle(window);
    if (handle && previousWindowProc)
        replaceWindowProc(handle, previousWindowProc);
    receiver = {nullptr, nullptr};
    previousWindowProc = nullptr;
    SDL_SetWindowsMessageHook(nullptr, nullptr);
}

} // namespace velmora::platform
