#pragma once

#include <windows.h>

#include <SDL3/SDL_properties.h>
#include <SDL3/SDL_video.h>

namespace velmora::test {

// The height that the menu bar takes of a window.
inline int menuStrip(SDL_Window* window) {
    const auto handle = static_cast<HWND>(SDL_GetPointerProperty(
        SDL_GetWindowProperties(window), SDL_PROP_WINDOW_WIN32_HWND_POINTER, nullptr));
    return GetMenu(handle) ? GetSystemMetrics(SM_CYMENU) : 0;
}

} // namespace velmora::test
