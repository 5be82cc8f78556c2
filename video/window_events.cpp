#include <velmora/sdl_video.h>

#include <SDL3/SDL_events.h>

#include "video/saturated_int.h"

namespace velmora {

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

} // namespace velmora
