#include "video/window_picture.h"

#include <cmath>
#include <limits>

namespace velmora::test {
namespace {

class WindowTest : public VideoTest {
protected:
    static void pushMotion(float x, float y) {
        push({.motion = {SDL_EVENT_MOUSE_MOTION, 0, 0, 0, 0, 0, x, y, 0, 0}});
    }

    SDL_Point mouse() {
        SDL_Point at = {};
        video.mousePos(at.x, at.y);
        return at;
    }

    // SDL's offscreen driver knows no order of windows, and an X server without a window manager no
    // fullscreen.
    static void expectFlag(SDL_WindowFlags flag, bool expected) {
        const std::string driver = SDL_GetCurrentVideoDriver();
        if ((driver == "x11" && flag == SDL_WINDOW_FULLSCREEN) ||
            (driver == "offscreen" && flag == SDL_WINDOW_ALWAYS_ON_TOP))
            return;
        SDL_SyncWindow(window());
        EXPECT_EQ((SDL_GetWindowFlags(window()) & flag) != 0, expected) << driver;
    }
};

TEST_F(WindowTest, OpensAtThreeTimesTheFrameAndRebuildsOnTheNextCreate) {
    struct {
        int width, height;
        SDL_Point size;
    } const cases[] = {{320, 240, {960, 720}}, {-5, 200, {480, 600}}, {200, 0, {600, 432}}};
    for (const auto& c : cases) {
        ASSERT_TRUE(video.create("Título", c.width, c.height)) << SDL_GetError();
        EXPECT_EQ(windowSize(), c.size);
        EXPECT_STREQ(SDL_GetWindowTitle(window()), "Título");
        expectFlag(SDL_WINDOW_RESIZABLE, true);
        expectFlag(SDL_WINDOW_HIGH_PIXEL_DENSITY, true);
    }
    video.destroy();
    EXPECT_EQ(window(), nullptr) << "none is left behind";
}

TEST_F(WindowTest, AbsurdSizesFailAndLeaveNothingOpen) {
    constexpr int most = std::numeric_limits<int>::max();
    const SDL_Point sizes[] = {{most, 10}, {10, most}, {most / 3 + 1, most / 3 + 1}, {100000, 144}};
    for (const SDL_Point& size : sizes) {
        ASSERT_TRUE(video.create("before", 160, 144));
        SDL_ClearError();
        EXPECT_FALSE(video.create("absurd", size.x, size.y)) << size;
        EXPECT_STREQ(SDL_GetError(), "Window is too large");
        EXPECT_EQ(window(), nullptr);
        retro_hw_render_callback request = {};
        request.context_type = RETRO_HW_CONTEXT_OPENGL;
        EXPECT_FALSE(video.setupHardware(request, size.x, size.y)) << size;
        EXPECT_EQ(window(), nullptr);
    }
    EXPECT_TRUE(video.create("after", 160, 144)) << SDL_GetError();
}

TEST_F(WindowTest, EverythingIsSafeWithoutAWindow) {
    const Uint32 pixel = 0;
    video.setTitle("forgotten");
    video.upload(&pixel, 1, 1, 4);
    video.upload(RETRO_HW_FRAME_BUFFER_VALID, 1, 1, 0);
    video.resizeHardwareBuffers(100, 100);
    video.present();
    EXPECT_FALSE(video.captureScreenshot((directory / "none.bmp").string()));
    EXPECT_FALSE(video.setFullscreen(true));
    EXPECT_FALSE(video.toggleFullscreen());
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    EXPECT_EQ(SdlVideo::framebufferThunk(), 0U);
    EXPECT_FALSE(pump());
    EXPECT_EQ(mouse(), (SDL_Point{0, 0}));
    video.destroy();
    ASSERT_TRUE(video.create("first", 0, 0));
    expectFlag(SDL_WINDOW_FULLSCREEN, false);
    video.setTitle("second");
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "second");
    video.present();
    video.destroy();
    video.destroy();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(WindowTest, TheWishToStayOnTopOutlivesWindowsAndFullscreenDoesNot) {
    EXPECT_TRUE(video.setAlwaysOnTop(true));
    EXPECT_TRUE(video.toggleAlwaysOnTop());
    EXPECT_TRUE(video.toggleAlwaysOnTop());
    ASSERT_TRUE(video.create("top", 160, 144));
    expectFlag(SDL_WINDOW_ALWAYS_ON_TOP, true);

    ASSERT_TRUE(video.toggleFullscreen()) << SDL_GetError();
    expectFlag(SDL_WINDOW_FULLSCREEN, true);
    ASSERT_TRUE(video.toggleFullscreen()) << SDL_GetError();
    expectFlag(SDL_WINDOW_FULLSCREEN, false);
    expectFlag(SDL_WINDOW_ALWAYS_ON_TOP, true);

    ASSERT_TRUE(video.setFullscreen(true));
    ASSERT_TRUE(video.create("again", 160, 144));
    expectFlag(SDL_WINDOW_FULLSCREEN, false);
    expectFlag(SDL_WINDOW_ALWAYS_ON_TOP, true);
    ASSERT_TRUE(video.toggleFullscreen());
    expectFlag(SDL_WINDOW_FULLSCREEN, true);
    EXPECT_TRUE(video.toggleAlwaysOnTop());
    expectFlag(SDL_WINDOW_ALWAYS_ON_TOP, false);
}

TEST_F(WindowTest, PointerEventsTruncateAndSaturate) {
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    struct {
        float x, y;
        SDL_Point expected;
    } const cases[] = {{12.9F, 7.2F, {12, 7}},
                       {-3.9F, -0.5F, {-3, 0}},
                       {1e20F, -1e20F, {most, least}},
                       {INFINITY, NAN, {most, 0}},
                       {2147483648.0F, -2147483648.0F, {most, least}}};
    for (const auto& c : cases) {
        pushMotion(c.x, c.y);
        click(c.x, c.y);
        EXPECT_EQ(mouse(), c.expected);
        SDL_Point at = {};
        ASSERT_TRUE(video.consumeClick(at.x, at.y));
        EXPECT_EQ(at, c.expected);
        EXPECT_FALSE(video.consumeClick(at.x, at.y));
    }
}

TEST_F(WindowTest, OnlyTheLatestLeftClickAndACloseRequestCount) {
    SDL_Point at = {-7, -7};
    click(5, 5, SDL_BUTTON_RIGHT);
    push({.button = {SDL_EVENT_MOUSE_BUTTON_UP, 0, 0, 0, 0, SDL_BUTTON_LEFT, false, 1, 0, 6, 6}});
    push({SDL_EVENT_QUIT});
    EXPECT_FALSE(pump());
    EXPECT_FALSE(video.consumeClick(at.x, at.y));
    EXPECT_EQ(at, (SDL_Point{-7, -7}));

    click(1, 2);
    click(3, 4);
    push({SDL_EVENT_WINDOW_CLOSE_REQUESTED});
    bool quit = false;
    video.pumpEvents(quit);
    video.pumpEvents(quit);
    EXPECT_TRUE(quit) << "never cleared by the library";
    ASSERT_TRUE(video.consumeClick(at.x, at.y));
    EXPECT_EQ(at, (SDL_Point{3, 4}));

    push({SDL_EVENT_WINDOW_CLOSE_REQUESTED});
    pushMotion(9, 9);
    video.destroy();
    EXPECT_FALSE(pump()) << "meant for the window that is gone";
    EXPECT_EQ(mouse(), (SDL_Point{0, 0})) << "a click moves nothing";
}

} // namespace
} // namespace velmora::test
