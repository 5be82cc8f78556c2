#include <velmora/sdl_video.h>

#include <SDL3/SDL_render.h>
#include <SDL3/SDL_video.h>

#include <algorithm>

#include "video/fit_rect.h"
#include "video/gl_functions.h"
#include "video/window_size.h"

namespace velmora {

void SdlVideo::present() {
    if (hardware)
        presentHardware();
    else
        presentSoftware();
}

void SdlVideo::presentSoftware() {
    if (!renderer || !texture)
        return;
    SDL_Point out = {};
    SDL_GetRenderOutputSize(renderer, &out.x, &out.y);
    const FitRect fit = fitRect(textureWidth, textureHeight, out.x, out.y);
    const SDL_FRect dst = {static_cast<float>(fit.x), static_cast<float>(fit.y),
                           static_cast<float>(fit.w), static_cast<float>(fit.h)};
    SDL_SetRenderDrawColor(renderer, 8, 10, 16, 255);
    SDL_RenderClear(renderer);
    SDL_RenderTexture(renderer, texture, nullptr, &dst);
    renderHud();
    SDL_RenderPresent(renderer);
}

void SdlVideo::presentHardware() {
    if (!makeCurrent() || !gl.glBlitFramebuffer) {
        if (window)
            SDL_GL_SwapWindow(window);
        return;
    }
    if (fbo != 0)
        blitFrame();
    renderHud();
    SDL_GL_SwapWindow(window);
}

void SdlVideo::blitFrame() {
    // A core that draws frames larger than it announced has drawn no more than what is allocated,
    // and GL leaves open what a blit finds beyond: the picture is the part that exists.
    const int allocatedW = static_cast<int>(fboWidth);
    const int allocatedH = static_cast<int>(fboHeight);
    const int srcW = frameWidth > 0 ? std::min(frameWidth, allocatedW) : allocatedW;
    const int srcH = frameHeight > 0 ? std::min(frameHeight, allocatedH) : allocatedH;
    const SDL_Point out = windowSizeInPixels(window);
    const FitRect fit = fitRect(srcW, srcH, out.x, out.y);

    gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, fbo);
    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    if (gl.glClearColor && gl.glClear) {
        gl.glClearColor(0.03F, 0.04F, 0.06F, 1.0F);
        gl.glClear(GL_COLOR_BUFFER_BIT);
    }
    // The window's rows run from its bottom upward, like those of a core with GL's own origin; for
    // any other core the blit itself turns the picture over.
    const bool upward = hwRender.bottom_left_origin;
    const int firstRow = upward ? fit.y : fit.y + fit.h;
    const int lastRow = upward ? fit.y + fit.h : fit.y;
    gl.glBlitFramebuffer(0, 0, srcW, srcH, fit.x, firstRow, fit.x + fit.w, lastRow,
                         GL_COLOR_BUFFER_BIT, GL_NEAREST);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

} // namespace velmora
