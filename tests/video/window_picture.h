#pragma once

#define GL_GLEXT_PROTOTYPES
#include <SDL3/SDL.h>
#include <SDL3/SDL_opengl.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <velmora/sdl_video.h>

#include "support/scratch_directory.h"

// The test's own way to GL, through what a core is given.
#define CORE_GL(name, ...)                                                                         \
    reinterpret_cast<decltype(&::name)>(velmora::SdlVideo::procAddressThunk(#name))(__VA_ARGS__)

namespace velmora::test {

// A picture whose pixels read as 0xRRGGBB, top row first.
struct Picture {
    explicit Picture(SDL_Surface* surface) : width(surface->w), height(surface->h) {
        pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        EXPECT_TRUE(SDL_ConvertPixels(width, height, surface->format, surface->pixels,
                                      surface->pitch, SDL_PIXELFORMAT_XRGB8888, pixels.data(),
                                      width * 4));
        SDL_DestroySurface(surface);
    }

    Uint32 at(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y * width + x)) & 0xffffff;
    }

    bool operator==(const Picture&) const = default;

    int width;
    int height;
    std::vector<Uint32> pixels;
};

class VideoTest : public testing::Test {
protected:
    VideoTest() { EXPECT_TRUE(SDL_Init(SDL_INIT_VIDEO)) << SDL_GetError(); }

    // Null without one.
    static SDL_Window* window() {
        const std::unique_ptr<SDL_Window*, decltype(&SDL_free)> all(SDL_GetWindows(nullptr),
                                                                    SDL_free);
        return *all;
    }

    static SDL_Point windowSize() {
        SDL_Point size = {};
        SDL_GetWindowSize(window(), &size.x, &size.y);
        return size;
    }

    void resize(int w, int h) {
        ASSERT_TRUE(SDL_SetWindowSize(window(), w, h));
        SDL_SyncWindow(window());
        pump();
    }

    // Whether the user wants to close the window.
    bool pump() {
        bool quit = false;
        EXPECT_TRUE(video.pumpEvents(quit));
        return quit;
    }

    static void push(SDL_Event event) { SDL_PushEvent(&event); }

    void click(float x, float y, Uint8 button = SDL_BUTTON_LEFT) {
        push({.button = {SDL_EVENT_MOUSE_BUTTON_DOWN, 0, 0, 0, 0, button, true, 1, 0, x, y}});
        pump();
    }

    // Twice: the buffer that a resize brought, or the other one of two, can be the one that is
    // read.
    void presentForReading() {
        video.present();
        video.present();
    }

    // A frame of one colour.
    void showPlain(unsigned w, unsigned h, Uint32 colour) {
        const std::vector<Uint32> frame(std::size_t{w} * h, colour);
        video.setPixelFormat(RETRO_PIXEL_FORMAT_XRGB8888);
        video.upload(frame.data(), w, h, w * sizeof(Uint32));
        presentForReading();
    }

    // What a core asks with that draws with GL's own origin.
    static retro_hw_render_callback
    openGl(retro_hw_context_type type = RETRO_HW_CONTEXT_OPENGL_CORE) {
        retro_hw_render_callback request = {};
        request.context_type = type;
        request.bottom_left_origin = true;
        return request;
    }

    Picture screenshot() {
        const std::string file = (directory / "picture.bmp").string();
        EXPECT_TRUE(video.captureScreenshot(file)) << SDL_GetError();
        return Picture(SDL_LoadBMP(file.c_str()));
    }

    // A hardware session's screenshot is of the whole framebuffer.
    SDL_Point framebufferSize() {
        const Picture picture = screenshot();
        return {picture.width, picture.height};
    }

    // Every pixel is what `expected` says of its place.
    template <class Expected>
    static void expectEach(const Picture& picture, Expected&& expected) {
        for (SDL_Point at = {}; at.y < picture.height; ++at.y) {
            for (at.x = 0; at.x < picture.width; ++at.x)
                ASSERT_EQ(picture.at(at.x, at.y), expected(at)) << at;
        }
    }

    // Draws into the core's framebuffer, from GL's origin on, and leaves it bound as cores do.
    static void fill(int x, int y, int w, int h, float r, float g, float b) {
        CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER,
                static_cast<GLuint>(SdlVideo::framebufferThunk()));
        CORE_GL(glEnable, GL_SCISSOR_TEST);
        CORE_GL(glScissor, x, y, w, h);
        CORE_GL(glClearColor, r, g, b, 1);
        CORE_GL(glClear, GL_COLOR_BUFFER_BIT);
        CORE_GL(glDisable, GL_SCISSOR_TEST);
        CORE_GL(glBindFramebuffer, GL_READ_FRAMEBUFFER, 0);
    }

    // What a GL window shows. Offscreen there is one buffer, and on X11 Mesa's software driver
    // keeps what it has shown in the back one.
    static Picture shownByGl() {
        SDL_Point size = {};
        SDL_GetWindowSizeInPixels(window(), &size.x, &size.y);
        SDL_Surface* surface = SDL_CreateSurface(size.x, size.y, SDL_PIXELFORMAT_RGBA32);
        CORE_GL(glReadBuffer,
                std::string(SDL_GetCurrentVideoDriver()) == "offscreen" ? GL_FRONT : GL_BACK);
        CORE_GL(glReadPixels, 0, 0, size.x, size.y, GL_RGBA, GL_UNSIGNED_BYTE, surface->pixels);
        SDL_FlipSurface(surface, SDL_FLIP_VERTICAL);
        return Picture(surface);
    }

    ScratchDirectory directory;
    SdlVideo video;
};

} // namespace velmora::test

inline bool operator==(const SDL_Point& a, const SDL_Point& b) { return a.x == b.x && a.y == b.y; }
inline std::ostream& operator<<(std::ostream& out, const SDL_Point& p) {
    return out << p.x << ", " << p.y;
}
