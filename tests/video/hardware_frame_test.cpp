#include "video/window_picture.h"

#include <array>
#include <climits>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

namespace velmora::test {
namespace {

using Calls = std::vector<std::string>;

// What stands for a core: what its record's two callbacks do and what they saw.
std::function<void()> onReset;
std::function<void()> onDestroy;
Calls calls;

void call(const char* name, const std::function<void()>& body) {
    // Both run with the context current and the framebuffer in place.
    const auto framebuffer = static_cast<GLuint>(SdlVideo::framebufferThunk());
    const bool whole =
        SDL_GL_GetCurrentContext() && framebuffer != 0 && CORE_GL(glIsFramebuffer, framebuffer);
    calls.push_back(whole ? name : std::string(name) + " without a framebuffer");
    body();
}

class HardwareFrameTest : public VideoTest {
protected:
    HardwareFrameTest() {
        onReset = onDestroy = [] {};
        calls.clear();
    }
    ~HardwareFrameTest() override { video.destroy(); }

    static retro_hw_render_callback
    request(retro_hw_context_type type = RETRO_HW_CONTEXT_OPENGL_CORE) {
        retro_hw_render_callback record = openGl(type);
        record.context_reset = [] { call("reset", onReset); };
        record.context_destroy = [] { call("destroy", onDestroy); };
        return record;
    }

    static GLint state(GLenum name) {
        GLint value = -1;
        CORE_GL(glGetIntegerv, name, &value);
        return value;
    }

    Picture present() {
        video.present();
        return shownByGl();
    }

    // Its pixels in the corners tell a frame that is shifted, cut or turned: red at GL's origin,
    // green to its right, blue above it, white above the green.
    void drawCorners(int w, int h) {
        fill(0, 0, w, h, 0.5F, 0.5F, 0.5F);
        fill(0, 0, 1, 1, 1, 0, 0);
        fill(w - 1, 0, 1, 1, 0, 1, 0);
        fill(0, h - 1, 1, 1, 0, 0, 1);
        fill(w - 1, h - 1, 1, 1, 1, 1, 1);
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, static_cast<unsigned>(w),
                     static_cast<unsigned>(h), 0);
    }

    // The frame fills `place`, with GL's origin at its bottom or at its top.
    static void expectCorners(const Picture& picture, const SDL_Rect& place, bool upright = true) {
        const int right = place.x + place.w - 1;
        const int first = upright ? place.y + place.h - 1 : place.y;
        const int last = upright ? place.y : place.y + place.h - 1;
        EXPECT_EQ(picture.at(place.x, first), 0xff0000U);
        EXPECT_EQ(picture.at(right, first), 0x00ff00U);
        EXPECT_EQ(picture.at(place.x, last), 0x0000ffU);
        EXPECT_EQ(picture.at(right, last), 0xffffffU);
    }
};

TEST_F(HardwareFrameTest, RefusesWhatItCannotGiveAndASoftwareGameStillPlays) {
    for (const auto& [type, version] : {std::pair{RETRO_HW_CONTEXT_OPENGL_CORE, 9U},
                                        {RETRO_HW_CONTEXT_OPENGL, UINT_MAX},
                                        {RETRO_HW_CONTEXT_NONE, 0U},
                                        {RETRO_HW_CONTEXT_OPENGLES2, 2U},
                                        {RETRO_HW_CONTEXT_VULKAN, 0U}}) {
        SCOPED_TRACE(testing::Message() << type << " of version " << version);
        retro_hw_render_callback record = request(type);
        record.version_major = record.version_minor = version;
        EXPECT_FALSE(video.setupHardware(record, 320, 240));
        EXPECT_EQ(window(), nullptr);
        EXPECT_TRUE(calls.empty());
        ASSERT_TRUE(video.create("software", 160, 144)) << SDL_GetError();
        showPlain(1, 1, 0xff8040);
        EXPECT_EQ(screenshot().at(240, 216), 0xff8040U);
    }
}

TEST_F(HardwareFrameTest, WindowAndFramebufferHaveTheirFloors) {
    ASSERT_TRUE(video.setupHardware(request(), -7, INT_MIN)) << SDL_GetError();
    EXPECT_EQ(windowSize(), (SDL_Point{640, 480}));
    EXPECT_EQ(framebufferSize(), (SDL_Point{640, 480}));
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "Velmora");
    fill(0, 0, 640, 480, 0, 1, 0);
    fill(0, 0, 1, 1, 1, 0, 1);
    EXPECT_EQ(present().at(559, 0), 0xff00ffU) << "a frame of one pixel";
}

TEST_F(HardwareFrameTest, AResizeGivesTheSizeAskedForAndAbsurdOnesCostNothing) {
    ASSERT_TRUE(video.setupHardware(request(), 800, 600)) << SDL_GetError();
    video.resizeHardwareBuffers(100, 100);
    EXPECT_EQ(framebufferSize(), (SDL_Point{256, 224}));
    for (const auto& [width, height] : {std::pair{700U, 600U}, {700U, 500U}, {800U, 600U}}) {
        video.resizeHardwareBuffers(width, height);
        EXPECT_EQ(framebufferSize(), (SDL_Point{int(width), int(height)}));
    }
    fill(0, 0, 800, 600, 1, 0, 1);
    const auto name = video.currentFramebuffer();
    video.resizeHardwareBuffers(800, 600);
    video.resizeHardwareBuffers(16385, 600);
    video.resizeHardwareBuffers(800, UINT_MAX);
    EXPECT_EQ(video.currentFramebuffer(), name);
    EXPECT_EQ(screenshot().at(799, 599), 0xff00ffU);
}

TEST_F(HardwareFrameTest, NoBuffersPileUpOverResizesAndOverlays) {
    retro_hw_render_callback record = request();
    record.depth = true;
    ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
    const auto objects = [] {
        int count = 0;
        for (GLuint name = 1; name < 32; ++name)
            count += CORE_GL(glIsTexture, name) + CORE_GL(glIsFramebuffer, name) +
                     CORE_GL(glIsRenderbuffer, name);
        return count;
    };
    EXPECT_EQ(objects(), 3);
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(objects(), 3);
    video.hud.showVolume = true;
    presentForReading();
    EXPECT_EQ(objects(), 5) << "the overlay's two, however often it is drawn";
}

TEST_F(HardwareFrameTest, DepthAndStencilComeAsAskedAlsoAfterAResize) {
    for (const auto& [depth, stencil] :
         {std::pair{false, false}, {true, false}, {false, true}, {true, true}}) {
        retro_hw_render_callback record = request(RETRO_HW_CONTEXT_OPENGL);
        record.depth = depth;
        record.stencil = stencil;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        for (unsigned width : {640U, 1000U}) {
            SCOPED_TRACE(testing::Message() << depth << stencil << " at " << width);
            video.resizeHardwareBuffers(width, 480);
            EXPECT_EQ(state(GL_FRAMEBUFFER_BINDING), 0) << "the window is left to draw into";
            CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER,
                    static_cast<GLuint>(video.currentFramebuffer()));
            EXPECT_EQ(CORE_GL(glCheckFramebufferStatus, GL_FRAMEBUFFER),
                      static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE));
            EXPECT_EQ(state(GL_DEPTH_BITS), depth || stencil ? 24 : 0);
            EXPECT_EQ(state(GL_STENCIL_BITS), stencil ? 8 : 0);
        }
    }
}

TEST_F(HardwareFrameTest, ThePictureIsUprightFittedAndBarred) {
    constexpr Uint32 bars = 0x080a0f;
    // The frame's size, and its place in the window of 640 by 480.
    const std::tuple<int, int, SDL_Rect> cases[] = {{240, 160, {0, 27, 640, 427}},
                                                    {100, 200, {200, 0, 240, 480}},
                                                    {640, 480, {0, 0, 640, 480}},
                                                    {600, 100, {0, 187, 640, 107}}};
    for (const bool bottomLeft : {true, false}) {
        retro_hw_render_callback record = request();
        record.bottom_left_origin = bottomLeft;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        for (const auto& [width, height, place] : cases) {
            SCOPED_TRACE(testing::Message() << bottomLeft << ": " << width << "x" << height);
            drawCorners(width, height);
            SDL_GL_MakeCurrent(window(), nullptr); // as a frontend's own windows may have it
            const Picture shown = present();
            expectCorners(shown, place, bottomLeft);
            expectEach(shown, [&](SDL_Point at) {
                return SDL_PointInRect(&at, &place) ? shown.at(at.x, at.y) : bars;
            });
            const int row = bottomLeft ? 480 - height : 0;
            expectCorners(screenshot(), {0, row, width, height}, bottomLeft);
        }
    }
}

TEST_F(HardwareFrameTest, AScreenshotKeepsEveryRowInItsPlaceAtEvenAndOddHeights) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    for (const int height : {240, 241}) {
        video.resizeHardwareBuffers(641, static_cast<unsigned>(height));
        for (int y = 0; y < height; ++y)
            fill(0, y, 641, 1, static_cast<float>(y) / 255, 0, 1);
        expectEach(screenshot(), [=](SDL_Point at) {
            return static_cast<Uint32>(height - 1 - at.y) << 16 | 255;
        });
    }
}

TEST_F(HardwareFrameTest, OfFramesThatCannotBeWhatIsAllocatedIsShown) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    drawCorners(640, 480);
    video.upload(RETRO_HW_FRAME_BUFFER_VALID, INT_MAX, INT_MAX, 0);
    expectCorners(present(), {0, 0, 640, 480});

    drawCorners(320, 320);
    for (const auto& [width, height] :
         {std::pair{0U, 480U}, {640U, 0U}, {UINT_MAX, 480U}, {640U, UINT_MAX}})
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, width, height, 0);
    expectCorners(present(), {80, 0, 480, 480}); // the last one that could be
}

TEST_F(HardwareFrameTest, WhatACoreLeavesInThePixelStoreMovesNoRowsAndStays) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    video.resizeHardwareBuffers(641, 481);
    resize(501, 401); // odd, so that the alignment matters
    drawCorners(641, 481);
    video.hud.message = "A message";
    video.hud.showMessage = true;
    presentForReading();
    const Picture shown = shownByGl();
    const Picture file = screenshot();
    constexpr std::pair<GLenum, GLint> left[] = {
        {GL_PACK_ROW_LENGTH, 9000},   {GL_PACK_SKIP_ROWS, 1000},   {GL_PACK_SKIP_PIXELS, 1000},
        {GL_UNPACK_ROW_LENGTH, 9000}, {GL_UNPACK_SKIP_ROWS, 1000}, {GL_UNPACK_SKIP_PIXELS, 1000},
        {GL_PACK_ALIGNMENT, 8},       {GL_UNPACK_ALIGNMENT, 8}};
    for (const auto& [name, value] : left)
        CORE_GL(glPixelStorei, name, value);
    video.present();
    EXPECT_TRUE(screenshot() == file);
    for (const auto& [name, value] : left) {
        EXPECT_EQ(state(name), value);
        CORE_GL(glPixelStorei, name, value == 8 ? 4 : 0); // as GL has it
    }
    EXPECT_TRUE(shownByGl() == shown);
}

TEST_F(HardwareFrameTest, TheCoreHearsOfItsContextAtTheRightMoments) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    ASSERT_TRUE(video.create("A game", 800, 800));
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "A game");
    EXPECT_EQ(windowSize(), (SDL_Point{640, 480})) << "retitled only";
    EXPECT_EQ(calls, Calls{"reset"});

    ASSERT_TRUE(video.setupHardware(request(RETRO_HW_CONTEXT_OPENGL), 400, 300));
    EXPECT_EQ(calls, (Calls{"reset", "destroy", "reset"})) << "OpenGL asked for twice";

    SDL_GL_MakeCurrent(nullptr, nullptr);
    video.destroy();
    EXPECT_EQ(calls, (Calls{"reset", "destroy", "reset", "destroy"}));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(HardwareFrameTest, TheFramebufferIsThatOfTheOneObjectOnTheHardwarePath) {
    const auto place = std::make_unique<std::array<std::byte, sizeof(SdlVideo)>>();
    auto* first = new (place.get()) SdlVideo;
    ASSERT_TRUE(first->setupHardware(request(), 320, 240)) << SDL_GetError();
    EXPECT_EQ(SdlVideo::framebufferThunk(), first->currentFramebuffer());
    SdlVideo().destroy();
    EXPECT_NE(SdlVideo::framebufferThunk(), 0U) << "another object's end is none of its";
    first->~SdlVideo();
    place->fill(std::byte{0xff});
    EXPECT_EQ(SdlVideo::framebufferThunk(), 0U);
    EXPECT_EQ(SdlVideo::procAddressThunk(nullptr), nullptr);
}

TEST_F(HardwareFrameTest, ACoreMayAskForMoreFromWithinItsCallbacks) {
    auto record = std::make_unique<retro_hw_render_callback>(request());
    const retro_hw_render_callback& inCoreMemory = *record;
    bool granted = false;
    const auto askAgain = [&] {
        video.resizeHardwareBuffers(800, 600);
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, 800, 600, 0);
        granted = granted || video.setupHardware(request(), 320, 240);
        EXPECT_STREQ(SDL_GetError(), "OpenGL requested from within a context callback");
        video.create("from inside", 160, 144);
    };
    onReset = askAgain;
    ASSERT_TRUE(video.setupHardware(inCoreMemory, 320, 240)) << SDL_GetError();
    EXPECT_EQ(windowSize(), (SDL_Point{640, 480}));
    EXPECT_EQ(framebufferSize(), (SDL_Point{800, 600}));
    drawCorners(800, 600);
    expectCorners(present(), {0, 0, 640, 480});

    // The core gives its record up when the context goes, and then asks with that very record.
    onDestroy = [&] {
        askAgain();
        video.destroy();
        record.reset();
    };
    ASSERT_TRUE(video.setupHardware(inCoreMemory, 400, 300)) << SDL_GetError();
    onDestroy = askAgain;
    video.destroy();
    EXPECT_FALSE(granted);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(calls, (Calls{"reset", "destroy", "reset", "destroy"}));
}

} // namespace
} // namespace velmora::test
