#include "video/window_picture.h"

#include <array>
#include <climits>
#include <functional>
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

retro_hw_render_callback request(retro_hw_context_type type = RETRO_HW_CONTEXT_OPENGL_CORE,
                                 unsigned major = 0, unsigned minor = 0) {
    retro_hw_render_callback record = {};
    record.context_type = type;
    record.version_major = major;
    record.version_minor = minor;
    record.context_reset = [] { call("reset", onReset); };
    record.context_destroy = [] { call("destroy", onDestroy); };
    record.bottom_left_origin = true;
    return record;
}

class HardwareFrameTest : public VideoTest {
protected:
    HardwareFrameTest() {
        onReset = onDestroy = [] {};
        calls.clear();
    }
    ~HardwareFrameTest() override { video.destroy(); }

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

    SDL_Point framebufferSize() {
        const Picture picture = screenshot();
        return {picture.width, picture.height};
    }
};

TEST_F(HardwareFrameTest, GivesTheContextThatTheCoreAsksFor) {
    struct {
        retro_hw_context_type type;
        unsigned major, minor;
        int askedMajor, askedMinor;
    } const cases[] = {{RETRO_HW_CONTEXT_OPENGL, 0, 0, 2, 1},
                       {RETRO_HW_CONTEXT_OPENGL, 4, 0, 4, 1},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 0, 0, 3, 3},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 4, 1, 4, 1}};
    const auto asked = [](SDL_GLAttr attribute) {
        int value = -1;
        SDL_GL_GetAttribute(attribute, &value);
        return value;
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << ": " << c.major << "." << c.minor);
        ASSERT_TRUE(video.setupHardware(request(c.type, c.major, c.minor), 320, 240));
        const bool isCore = c.type == RETRO_HW_CONTEXT_OPENGL_CORE;
        EXPECT_EQ(asked(SDL_GL_CONTEXT_MAJOR_VERSION), c.askedMajor);
        EXPECT_EQ(asked(SDL_GL_CONTEXT_MINOR_VERSION), c.askedMinor);
        EXPECT_EQ(asked(SDL_GL_CONTEXT_PROFILE_MASK),
                  isCore ? SDL_GL_CONTEXT_PROFILE_CORE : SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
        GLint mask = 0;
        CORE_GL(glGetIntegerv, GL_CONTEXT_PROFILE_MASK, &mask);
        EXPECT_EQ((mask & GL_CONTEXT_CORE_PROFILE_BIT) != 0, isCore);
    }
}

TEST_F(HardwareFrameTest, RefusesWhatItCannotGiveAndASoftwareGameStillPlays) {
    struct {
        retro_hw_context_type type;
        unsigned major, minor;
    } const cases[] = {{RETRO_HW_CONTEXT_OPENGL_CORE, 9, 9},
                       {RETRO_HW_CONTEXT_OPENGL, UINT_MAX, UINT_MAX},
                       {RETRO_HW_CONTEXT_NONE, 0, 0},
                       {RETRO_HW_CONTEXT_OPENGLES2, 2, 0},
                       {RETRO_HW_CONTEXT_VULKAN, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << ": " << c.major << "." << c.minor);
        EXPECT_FALSE(video.setupHardware(request(c.type, c.major, c.minor), 320, 240));
        EXPECT_EQ(window(), nullptr);
        EXPECT_TRUE(calls.empty());
        ASSERT_TRUE(video.create("software", 160, 144)) << SDL_GetError();
        showPlain(1, 1, 0xff8040);
        EXPECT_EQ(screenshot().at(240, 216), 0xff8040U);
    }
}

TEST_F(HardwareFrameTest, WindowAndFramebufferHaveTheirFloors) {
    struct {
        int width, height;
        SDL_Point window, framebuffer;
    } const cases[] = {{240, 160, {640, 480}, {640, 480}},
                       {-7, INT_MIN, {640, 480}, {640, 480}},
                       {800, 600, {1600, 1200}, {800, 600}}};
    for (const auto& c : cases) {
        ASSERT_TRUE(video.setupHardware(request(), c.width, c.height)) << SDL_GetError();
        EXPECT_EQ(windowSize(), c.window);
        EXPECT_EQ(framebufferSize(), c.framebuffer);
    }
    EXPECT_TRUE(video.setupHardware(request(), 8192, 1)) << "the widest that there is";
    ASSERT_TRUE(video.setupHardware(request(), 0, 0));
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "Velmora");
    fill(0, 0, 640, 480, 0, 1, 0);
    fill(0, 0, 1, 1, 1, 0, 1);
    presentForReading();
    EXPECT_EQ(shownByGl().at(559, 0), 0xff00ffU) << "a frame of one pixel";
}

TEST_F(HardwareFrameTest, AResizeGivesTheSizeAskedForAndAbsurdOnesCostNothing) {
    ASSERT_TRUE(video.setupHardware(request(), 800, 600)) << SDL_GetError();
    struct {
        unsigned width, height;
        SDL_Point framebuffer;
    } const cases[] = {{700, 600, {700, 600}},
                       {700, 500, {700, 500}},
                       {100, 100, {256, 224}},
                       {16384, 7, {16384, 224}},
                       {800, 600, {800, 600}}};
    for (const auto& c : cases) {
        video.resizeHardwareBuffers(c.width, c.height);
        EXPECT_EQ(framebufferSize(), c.framebuffer);
    }
    fill(0, 0, 800, 600, 1, 0, 1);
    const auto name = video.currentFramebuffer();
    for (const unsigned side : {800U, 16385U, 2000000000U, UINT_MAX}) {
        video.resizeHardwareBuffers(side, 600);
        video.resizeHardwareBuffers(800, side == 800 ? 600 : side);
    }
    EXPECT_EQ(video.currentFramebuffer(), name);
    EXPECT_EQ(screenshot().at(799, 599), 0xff00ffU);
}

TEST_F(HardwareFrameTest, AResizeGivesTheOldBuffersBack) {
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
    EXPECT_FALSE(video.hud.showMessage) << "the overlay is the frontend's alone";
}

TEST_F(HardwareFrameTest, DepthAndStencilComeAsAskedAlsoAfterAResize) {
    struct {
        bool depth, stencil;
        int depthBits, stencilBits;
    } const cases[] = {
        {false, false, 0, 0}, {true, false, 24, 0}, {false, true, 24, 8}, {true, true, 24, 8}};
    for (const auto& c : cases) {
        retro_hw_render_callback record = request(RETRO_HW_CONTEXT_OPENGL);
        record.depth = c.depth;
        record.stencil = c.stencil;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        for (unsigned width : {640U, 1000U}) {
            SCOPED_TRACE(testing::Message() << c.depth << c.stencil << " at " << width);
            video.resizeHardwareBuffers(width, 480);
            GLint bound = -1;
            CORE_GL(glGetIntegerv, GL_FRAMEBUFFER_BINDING, &bound);
            EXPECT_EQ(bound, 0) << "the window is left to draw into";
            CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER,
                    static_cast<GLuint>(video.currentFramebuffer()));
            EXPECT_EQ(CORE_GL(glCheckFramebufferStatus, GL_FRAMEBUFFER),
                      static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE));
            for (const auto& [name, bits] :
                 {std::pair{GL_DEPTH_BITS, c.depthBits}, {GL_STENCIL_BITS, c.stencilBits}}) {
                GLint value = -1;
                CORE_GL(glGetIntegerv, static_cast<GLenum>(name), &value);
                EXPECT_EQ(value, bits);
            }
        }
    }
}

TEST_F(HardwareFrameTest, ThePictureIsUprightFittedAndBarred) {
    constexpr Uint32 bars = 0x080a0f;
    struct {
        int frameW, frameH;
        SDL_Rect picture; // in the window of 640 by 480
    } const cases[] = {{240, 160, {0, 27, 640, 427}},
                       {100, 200, {200, 0, 240, 480}},
                       {640, 480, {0, 0, 640, 480}},
                       {600, 100, {0, 187, 640, 107}}};
    for (const bool bottomLeft : {true, false}) {
        retro_hw_render_callback record = request();
        record.bottom_left_origin = bottomLeft;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        for (const auto& c : cases) {
            SCOPED_TRACE(testing::Message() << bottomLeft << ": " << c.frameW << "x" << c.frameH);
            drawCorners(c.frameW, c.frameH);
            SDL_GL_MakeCurrent(window(), nullptr); // as a frontend's own windows may have it
            video.present();
            const Picture shown = shownByGl();
            expectCorners(shown, c.picture, bottomLeft);
            for (SDL_Point at = {}; at.y < 480; ++at.y) {
                for (at.x = 0; at.x < 640; ++at.x)
                    ASSERT_EQ(shown.at(at.x, at.y) == bars, !SDL_PointInRect(&at, &c.picture))
                        << at;
            }
            const int row = bottomLeft ? 480 - c.frameH : 0;
            expectCorners(screenshot(), {0, row, c.frameW, c.frameH}, bottomLeft);
        }
    }
}

TEST_F(HardwareFrameTest, AScreenshotKeepsEveryRowInItsPlaceAtEvenAndOddHeights) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    for (const int height : {240, 241}) {
        video.resizeHardwareBuffers(641, static_cast<unsigned>(height));
        for (int y = 0; y < height; ++y)
            fill(0, y, 641, 1, static_cast<float>(y) / 255, 0, 1);
        const Picture file = screenshot();
        for (int y = 0; y < height; ++y)
            EXPECT_EQ(file.at(640, height - 1 - y), static_cast<Uint32>(y << 16 | 255)) << y;
    }
}

TEST_F(HardwareFrameTest, OfFramesThatCannotBeWhatIsAllocatedIsShown) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    drawCorners(640, 480);
    video.upload(RETRO_HW_FRAME_BUFFER_VALID, INT_MAX, INT_MAX, 0);
    video.present();
    expectCorners(shownByGl(), {0, 0, 640, 480});

    drawCorners(320, 320);
    for (const auto& [width, height] :
         {std::pair{0U, 480U}, {640U, 0U}, {UINT_MAX, 480U}, {640U, UINT_MAX}})
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, width, height, 0);
    video.present();
    expectCorners(shownByGl(), {80, 0, 480, 480}); // the last one that could be
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
    constexpr GLenum names[] = {GL_PACK_ROW_LENGTH,   GL_PACK_SKIP_ROWS,   GL_PACK_SKIP_PIXELS,
                                GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS,
                                GL_PACK_ALIGNMENT,    GL_UNPACK_ALIGNMENT};
    const auto store = [&] {
        std::array<GLint, std::size(names)> values;
        for (std::size_t i = 0; i < values.size(); ++i)
            CORE_GL(glGetIntegerv, names[i], &values[i]);
        return values;
    };
    const auto before = store();
    std::array<GLint, std::size(names)> left = {9000, 1000, 1000, 9000, 1000, 1000, 8, 8};
    for (std::size_t i = 0; i < left.size(); ++i)
        CORE_GL(glPixelStorei, names[i], left[i]);
    video.present();
    EXPECT_TRUE(screenshot() == file);
    EXPECT_EQ(store(), left);
    for (std::size_t i = 0; i < left.size(); ++i)
        CORE_GL(glPixelStorei, names[i], before[i]);
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
    EXPECT_EQ(windowSize(), (SDL_Point{800, 600}));

    SDL_GL_MakeCurrent(nullptr, nullptr);
    video.destroy();
    EXPECT_EQ(calls, (Calls{"reset", "destroy", "reset", "destroy"}));
    EXPECT_EQ(window(), nullptr);
    ASSERT_TRUE(video.create("software", 160, 144));
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    EXPECT_EQ(calls.size(), 4U);
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
    video.present();
    expectCorners(shownByGl(), {0, 0, 640, 480});

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
