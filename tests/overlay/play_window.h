#pragma once

#include <SDL3/SDL_opengl.h>

#include <vector>

#include "video/window_picture.h"

namespace velmora::test {

// A window on either path, over a game picture of one colour and the window's own size.
class PlayWindowTest : public VideoTest {
protected:
    static constexpr SDL_Color game = {100, 150, 200, 255};

    // On hardware at least 640 by 480, and not to be enlarged: the offscreen driver never gives a
    // GL window a larger surface.
    void open(int w, int h, bool onHardware = false) {
        hardware = onHardware;
        retro_hw_render_callback request = {};
        request.context_type = RETRO_HW_CONTEXT_OPENGL_CORE;
        ASSERT_TRUE(hardware ? video.setupHardware(request, w / 2, h / 2)
                             : video.create("overlay", 320, 240))
            << SDL_GetError();
        resize(w, h);
    }

    void resize(int w, int h) {
        ASSERT_TRUE(SDL_SetWindowSize(window(), w, h));
        SDL_SyncWindow(window());
        pump();
    }

    void pump() {
        bool quit = false;
        video.pumpEvents(quit);
    }

    void click(float x, float y, Uint8 button = SDL_BUTTON_LEFT) {
        SDL_Event event = {};
        event.button = {SDL_EVENT_MOUSE_BUTTON_DOWN, 0, 0, 0, 0, button, true, 1, 0, x, y};
        SDL_PushEvent(&event);
        pump();
    }

    // What the window shows.
    Picture present() {
        const auto w = static_cast<unsigned>(windowSize().x);
        const auto h = static_cast<unsigned>(windowSize().y);
        const std::vector<Uint32> frame(std::size_t{w} * h, game.r << 16 | game.g << 8 | game.b);
        if (hardware)
            clearCoreFramebuffer(w, h);
        video.setPixelFormat(RETRO_PIXEL_FORMAT_XRGB8888);
        video.upload(frame.data(), w, h, w * sizeof(Uint32));
        // Twice, so that a window with two buffers holds the picture in the one that is read.
        video.present();
        video.present();
        return hardware ? backBuffer() : screenshot();
    }

private:
    void clearCoreFramebuffer(unsigned w, unsigned h) {
        video.resizeHardwareBuffers(w, h);
        gl<PFNGLBINDFRAMEBUFFERPROC>("glBindFramebuffer")(
            GL_FRAMEBUFFER, static_cast<GLuint>(video.currentFramebuffer()));
        gl<decltype(&glClearColor)>("glClearColor")(game.r / 255.0F, game.g / 255.0F,
                                                    game.b / 255.0F, 1);
        gl<decltype(&glClear)>("glClear")(GL_COLOR_BUFFER_BIT);
    }

    static Picture backBuffer() {
        SDL_Surface* surface =
            SDL_CreateSurface(windowSize().x, windowSize().y, SDL_PIXELFORMAT_RGBA32);
        gl<decltype(&glReadBuffer)>("glReadBuffer")(GL_BACK);
        gl<decltype(&glReadPixels)>("glReadPixels")(0, 0, surface->w, surface->h, GL_RGBA,
                                                    GL_UNSIGNED_BYTE, surface->pixels);
        SDL_FlipSurface(surface, SDL_FLIP_VERTICAL);
        return Picture(surface);
    }

    template <class Function>
    static Function gl(const char* name) {
        return reinterpret_cast<Function>(SDL_GL_GetProcAddress(name));
    }

    bool hardware = false;
};

} // namespace velmora::test
