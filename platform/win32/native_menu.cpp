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

// Set before the first message can come, and kept: who receives knows whether it still wants any.
MenuEvents receiver = {};

// What the subclass displaced; null while no subclass is in place.
WNDPROC previousWindowProc = nullptr;

HMENU asMenu(void* menu) { return static_cast<HMENU>(menu); }

// Asked anew each time: SDL may give its window another handle. The system refuses a null one, as
// it does a null menu.
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

// States in which the system decides where a window is.
constexpr SDL_WindowFlags withoutChoice =
    SDL_WINDOW_FULLSCREEN | SDL_WINDOW_MAXIMIZED | SDL_WINDOW_MINIMIZED;

bool hang(SDL_Window* window, void* bar) {
    const HWND handle = nativeHandle(window);
    return SetMenu(handle, asMenu(bar)) && DrawMenuBar(handle);
}

void deliver(UINT message, WPARAM wParam) {
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

WNDPROC replaceWindowProc(SDL_Window* window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(SetWindowLongPtrW(nativeHandle(window), GWLP_WNDPROC,
                                                       reinterpret_cast<LONG_PTR>(procedure)));
}

} // namespace

void* createMenuBar() noexcept { return CreateMenu(); }

void* createPopupMenu() noexcept { return CreatePopupMenu(); }

void destroyMenu(void* menu) noexcept { DestroyMenu(asMenu(menu)); }

void appendItem(void* menu, int id, std::string_view label, bool enabled) noexcept {
    append(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED, static_cast<UINT_PTR>(id), label);
}

void appendSubmenu(void* menu, void* submenu, std::string_view label) noexcept {
    append(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(submenu), label);
}

void appendSeparator(void* menu) noexcept { AppendMenuW(asMenu(menu), MF_SEPARATOR, 0, nullptr); }

bool removeFirstItem(void* menu) noexcept { return DeleteMenu(asMenu(menu), 0, MF_BYPOSITION); }

void checkItem(void* menu, int id, bool checked) noexcept {
    CheckMenuItem(asMenu(menu), static_cast<UINT>(id), checked ? MF_CHECKED : MF_UNCHECKED);
}

void setMenuBar(SDL_Window* window, void* bar) noexcept {
    SDL_Rect client = {};
    SDL_GetWindowPosition(window, &client.x, &client.y);
    SDL_GetWindowSize(window, &client.w, &client.h);
    if (!hang(window, bar) || (SDL_GetWindowFlags(window) & withoutChoice) != 0)
        return;
    // The bar takes its strip from the client area or gives it back. SDL would return from
    // fullscreen to what that leaves, each time higher and larger by the strip.
    SDL_SetWindowSize(window, client.w, client.h);
    if (!bar)
        SDL_SetWindowPosition(window, client.x, client.y);
}

void detachMenuBar(SDL_Window* window) noexcept { hang(window, nullptr); }

void installMessageHandling(SDL_Window* window, const MenuEvents& events) noexcept {
    receiver = events;
    if (!previousWindowProc)
        previousWindowProc = replaceWindowProc(window, menuWindowProc);
    SDL_SetWindowsMessageHook(menuMessageHook, nullptr);
}

void removeMessageHandling(SDL_Window* window) noexcept {
    if (previousWindowProc)
        replaceWindowProc(window, std::exchange(previousWindowProc, nullptr));
    SDL_SetWindowsMessageHook(nullptr, nullptr);
}

} // namespace velmora::platform
