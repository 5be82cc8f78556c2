#include <velmora/sdl_video.h>

#include <SDL3/SDL_render.h>

#include <memory>

#include "overlay/hud_elements.h"
#include "support/no_throw.h"
#include "video/surface.h"
#include "video/window_size.h"

namespace velmora {
namespace {

struct RendererDeleter {
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
};

// False when the memory for it is not to be had; of the element nothing is drawn then.
bool drawElement(const HudElement& element, const HudCanvas& canvas, const PlayHud& hud) {
    return noThrowOr(false, [&] {
        element.draw(canvas, hud);
        return true;
    });
}

} // namespace

void SdlVideo::renderHud() {
    if (!window || (!hud.showMessage && !hud.showVolume && !hud.menuOpen))
        return;
    if (!hardware) {
        const SDL_Point canvas = windowSize(window);
        renderHudSdl(canvas.x, canvas.y);
        return;
    }
    const SDL_Point canvas = windowSizeInPixels(window);
    for (const HudElement& element : hudElements()) {
        if (!element.visible(hud))
            continue;
        const hud_layout::Rect place = element.place(canvas.x, canvas.y);
        composePanel(place.x, place.y, place.w, place.h, element);
    }
}

void SdlVideo::renderHudSdl(int w, int h) {
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_BLEND);
    for (const HudElement& element : hudElements()) {
        if (!element.visible(hud))
            continue;
        if (element.dims)
            fillRect({renderer, {0, 0, w, h}, true}, {0, 0, w, h}, hud_layout::dimming);
        drawElement(element, {renderer, element.place(w, h), true}, hud);
    }
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_NONE);
}

void SdlVideo::composePanel(int x, int y, int w, int h, const HudElement& element) {
    const Surface surface(SDL_CreateSurface(w, h, SDL_PIXELFORMAT_RGBA32));
    if (!surface)
        return;
    const std::unique_ptr<SDL_Renderer, RendererDeleter> painter(
        SDL_CreateSoftwareRenderer(surface.get()));
    if (!painter)
        return;
    if (!drawElement(element, {painter.get(), {0, 0, w, h}, false}, hud))
        return;
    SDL_RenderPresent(painter.get());
    blitRgba(x, y, w, h, surface->pixels);
}

} // namespace velmora
