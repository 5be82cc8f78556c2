#include <velmora/sdl_video.h>

#include <SDL3/SDL_events.h>
#include <SDL3/SDL_video.h>

#include "video/saturated_int.h"

namespace velmora {

void SdlVideo::setTitle(const std::string& title) {
    if (window)
        SDL_SetWindowTitle(window, title.c_str());
}

bool SdlVideo::pumpEvents(bool& quit) {
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_EVENT_WINDOW_CLOSE_REQUESTED:
            quit = true;
            break;
        case SDL_EVENT_MOUSE_MOTION:
            mouseX = saturatedInt(event.motion.x);
            mouseY = saturatedInt(event.motion.y);
            break;
        case SDL_EVENT_MOUSE_BUTTON_DOWN:
            if (event.button.button == SDL_BUTTON_LEFT)
                noteClick(event.button.x, event.button.y);
            break;
        default:
            break;
        }
    }
    return true;
}

void SdlVideo::noteClick(float x, float y) {
    clickX = saturatedInt(x);
    clickY = saturatedInt(y);
    clickPending = true;
}

void SdlVideo::mousePos(int& x, int& y) const {
    x = mouseX;
    y = mouseY;
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
