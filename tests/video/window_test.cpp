#include "video/window_picture.h"

#include <climits>
#include <cmath>
#include <tuple>
#include <utility>

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
};

TEST_F(WindowTest, OpensAtThreeTimesTheFrameAndRebuildsOnTheNextCreate) {
    for (const auto& [frame, size] : {std::pair{SDL_Point{320, 240}, SDL_Point{960, 720}},
                                      {{-5, 200}, {480, 600}},
                                      {{200, 0}, {600, 432}}}) {
        ASSERT_TRUE(video.create("Título", frame.x, frame.y)) << SDL_GetError();
        EXPECT_EQ(windowSize(), size);
        EXPECT_STREQ(SDL_GetWindowTitle(window()), "Título");
        constexpr auto flags = SDL_WINDOW_RESIZABLE | SDL_WINDOW_HIGH_PIXEL_DENSITY;
        EXPECT_EQ(SDL_GetWindowFlags(window()) & flags, flags);
    }
    video.destroy();
    EXPECT_EQ(window(), nullptr) << "none is left behind";
}

TEST_F(WindowTest, AbsurdSizesFailAndLeaveNothingOpen) {
    for (const SDL_Point& size : {SDL_Point{INT_MAX, 10}, {10, INT_MAX}, {100000, 144}}) {
        ASSERT_TRUE(video.create("before", 160, 144)) << SDL_GetError();
        SDL_ClearError();
        EXPECT_FALSE(video.create("absurd", size.x, size.y)) << size;
        EXPECT_STREQ(SDL_GetError(), "Window is too large");
        EXPECT_EQ(window(), nullptr);
        EXPECT_FALSE(video.setupHardware(openGl(), size.x, size.y)) << size;
        EXPECT_EQ(window(), nullptr);
    }
}

TEST_F(WindowTest, EverythingIsSafeWithoutAWindow) {
    video.setTitle("forgotten");
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
    video.setTitle("second");
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "second");
}

TEST_F(WindowTest, PointerEventsTruncateAndSaturate) {
    const std::tuple<float, float, SDL_Point> cases[] = {
        {12.9F, 7.2F, {12, 7}},
        {-3.9F, -0.5F, {-3, 0}},
        {INFINITY, NAN, {INT_MAX, 0}},
        {2147483648.0F, -1e20F, {INT_MAX, INT_MIN}}};
    for (const auto& [x, y, expected] : cases) {
        pushMotion(x, y);
        click(x, y);
        EXPECT_EQ(mouse(), expected);
        SDL_Point at = {};
        ASSERT_TRUE(video.consumeClick(at.x, at.y));
        EXPECT_EQ(at, expected);
        EXPECT_FALSE(video.consumeClick(at.x, at.y)) << "one click is one";
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
