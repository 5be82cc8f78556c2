#include <velmora/sdl_video.h>

#include <SDL3/SDL_video.h>

namespace velmora {

void SdlVideo::setTitle(const std::string& title) {
    if (window)
        SDL_SetWindowTitle(window, title.c_str());
}

bool SdlVideo::setFullscreen(bool on) {
    if (!window)
        return false;
    showNativeMenu(!on);
    if (!SDL_SetWindowFullscreen(window, on)) {
        showNativeMenu(!fullscreen);
        return false;
    }
    fullscreen = on;
    // Leaving fullscreen must not cost the window its place above the others.
    if (alwaysOnTop && !on)
        SDL_SetWindowAlwaysOnTop(window, true);
    return true;
}

bool SdlVideo::toggleFullscreen() { return setFullscreen(!fullscreen); }

bool SdlVideo::setAlwaysOnTop(bool on) {
    alwaysOnTop = on;
    if (!window)
        return true;
    if (!SDL_SetWindowAlwaysOnTop(window, on))
        return false;
    updateAlwaysOnTopMenu();
    return true;
}

bool SdlVideo::toggleAlwaysOnTop() { return setAlwaysOnTop(!alwaysOnTop); }

} // namespace velmora
