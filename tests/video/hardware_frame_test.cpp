#include "video/window_picture.h"

#define GL_GLEXT_PROTOTYPES
#include <SDL3/SDL_opengl.h>

#include <climits>
#include <functional>
#include <utility>
#include <vector>

namespace velmora::test {
namespace {

// The test's own way to GL, through what a core is given.
#define CORE_GL(name, ...)                                                                         \
    reinterpret_cast<decltype(&::name)>(SdlVideo::procAddressThunk(#name))(__VA_ARGS__)

// What stands for a core: its record's two callbacks and what they saw.
struct Core {
    std::vector<std::string> calls;
    std::function<void()> onReset = [] {};
    std::function<void()> onDestroy = [] {};
};

Core* core = nullptr;

void call(const char* name, const std::function<void()>& body) {
    // Both run with the context current and the framebuffer in place.
    const auto framebuffer = static_cast<GLuint>(SdlVideo::framebufferThunk());
    const bool whole =
        SDL_GL_GetCurrentContext() && framebuffer != 0 && CORE_GL(glIsFramebuffer, framebuffer);
    core->calls.push_back(whole ? name : std::string(name) + " without a framebuffer");
    body();
}

void reset() { call("reset", core->onReset); }
void destroyed() { call("destroy", core->onDestroy); }

retro_hw_render_callback request(retro_hw_context_type type = RETRO_HW_CONTEXT_OPENGL_CORE) {
    retro_hw_render_callback record = {};
    record.context_type = type;
    record.context_reset = reset;
    record.context_destroy = destroyed;
    record.bottom_left_origin = true;
    return record;
}

class HardwareFrameTest : public VideoTest {
protected:
    HardwareFrameTest() { core = &fake; }
    ~HardwareFrameTest() override { video.destroy(); }

    static void bindCoreFramebuffer() {
        CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER,
                static_cast<GLuint>(SdlVideo::framebufferThunk()));
    }

    static void fill(int x, int y, int w, int h, float r, float g, float b) {
        bindCoreFramebuffer();
        CORE_GL(glEnable, GL_SCISSOR_TEST);
        CORE_GL(glScissor, x, y, w, h);
        CORE_GL(glClearColor, r, g, b, 1);
        CORE_GL(glClear, GL_COLOR_BUFFER_BIT);
        CORE_GL(glDisable, GL_SCISSOR_TEST);
        CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER, 0);
    }

    // Red in the quarter at GL's origin, green to its right, blue above it, white above the green.
    void drawQuarters(int w, int h) {
        fill(0, 0, w / 2, h / 2, 1, 0, 0);
        fill(w / 2, 0, w - w / 2, h / 2, 0, 1, 0);
        fill(0, h / 2, w / 2, h - h / 2, 0, 0, 1);
        fill(w / 2, h / 2, w - w / 2, h - h / 2, 1, 1, 1);
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, static_cast<unsigned>(w),
                     static_cast<unsigned>(h), 0);
    }

    static GLint attachmentInt(GLenum attachment, GLenum what) {
        GLint value = -1;
        CORE_GL(glGetFramebufferAttachmentParameteriv, GL_FRAMEBUFFER, attachment, what, &value);
        return value;
    }

    // What the window shows. Offscreen there is one buffer, and on X11 Mesa's software driver keeps
    // what it has shown in the back one.
    static Picture shown() {
        SDL_Point size = {};
        SDL_GetWindowSizeInPixels(window(), &size.x, &size.y);
        SDL_Surface* surface = SDL_CreateSurface(size.x, size.y, SDL_PIXELFORMAT_RGBA32);
        CORE_GL(glReadBuffer,
                std::string(SDL_GetCurrentVideoDriver()) == "offscreen" ? GL_FRONT : GL_BACK);
        CORE_GL(glReadPixels, 0, 0, size.x, size.y, GL_RGBA, GL_UNSIGNED_BYTE, surface->pixels);
        SDL_FlipSurface(surface, SDL_FLIP_VERTICAL);
        return Picture(surface);
    }

    SDL_Point framebufferSize() {
        const Picture picture = screenshot();
        return {picture.width(), picture.height()};
    }

    Core fake;
};

TEST_F(HardwareFrameTest, GivesTheContextThatTheCoreAsksFor) {
    struct {
        retro_hw_context_type type;
        unsigned major, minor;
        int askedMajor, askedMinor, profile;
    } const cases[] = {{RETRO_HW_CONTEXT_OPENGL, 0, 0, 2, 1, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY},
                       {RETRO_HW_CONTEXT_OPENGL, 4, 0, 4, 1, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 0, 0, 3, 3, SDL_GL_CONTEXT_PROFILE_CORE},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 3, 0, 3, 3, SDL_GL_CONTEXT_PROFILE_CORE},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 4, 5, 4, 5, SDL_GL_CONTEXT_PROFILE_CORE}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << ": " << c.major << "." << c.minor);
        retro_hw_render_callback record = request(c.type);
        record.version_major = c.major;
        record.version_minor = c.minor;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        const std::pair<SDL_GLAttr, int> asked[] = {{SDL_GL_CONTEXT_MAJOR_VERSION, c.askedMajor},
                                                    {SDL_GL_CONTEXT_MINOR_VERSION, c.askedMinor},
                                                    {SDL_GL_CONTEXT_PROFILE_MASK, c.profile}};
        for (const auto& [attribute, expected] : asked) {
            int value = -1;
            SDL_GL_GetAttribute(attribute, &value);
            EXPECT_EQ(value, expected) << attribute;
        }
        const auto* version = reinterpret_cast<const char*>(CORE_GL(glGetString, GL_VERSION));
        EXPECT_GE(std::stod(version), c.askedMajor + c.askedMinor / 10.0) << version;
        GLint mask = 0;
        CORE_GL(glGetIntegerv, GL_CONTEXT_PROFILE_MASK, &mask);
        EXPECT_EQ((mask & GL_CONTEXT_CORE_PROFILE_BIT) != 0,
                  c.type == RETRO_HW_CONTEXT_OPENGL_CORE);
    }
}

TEST_F(HardwareFrameTest, RefusesWhatItCannotGiveAndASoftwareGameStillPlays) {
    struct {
        int type;
        unsigned major, minor;
    } const cases[] = {{RETRO_HW_CONTEXT_OPENGL, 9, 9},
                       {RETRO_HW_CONTEXT_OPENGL_CORE, 9, 9},
                       {RETRO_HW_CONTEXT_OPENGL, UINT_MAX, UINT_MAX},
                       {RETRO_HW_CONTEXT_NONE, 0, 0},
                       {RETRO_HW_CONTEXT_OPENGLES2, 2, 0},
                       {RETRO_HW_CONTEXT_VULKAN, 0, 0},
                       {RETRO_HW_CONTEXT_DUMMY, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << ": " << c.major << "." << c.minor);
        retro_hw_render_callback record = request(static_cast<retro_hw_context_type>(c.type));
        record.version_major = c.major;
        record.version_minor = c.minor;
        EXPECT_FALSE(video.setupHardware(record, 320, 240));
        EXPECT_EQ(windowCount(), 0);
        EXPECT_EQ(SdlVideo::framebufferThunk(), 0U);
        EXPECT_TRUE(fake.calls.empty());
        ASSERT_TRUE(video.create("software", 160, 144)) << SDL_GetError();
        EXPECT_EQ(windowSize(), (SDL_Point{480, 432}));
        const Uint32 pixel = 0xff8040;
        video.setPixelFormat(RETRO_PIXEL_FORMAT_XRGB8888);
        video.upload(&pixel, 1, 1, 4);
        video.present();
        EXPECT_EQ(screenshot().at(240, 216), pixel);
    }
}

TEST_F(HardwareFrameTest, SizesHaveTheirFloors) {
    struct {
        int width, height;
        SDL_Point window, framebuffer;
    } const cases[] = {{240, 160, {640, 480}, {640, 480}},
                       {0, 0, {640, 480}, {640, 480}},
                       {-7, INT_MIN, {640, 480}, {640, 480}},
                       {800, 600, {1600, 1200}, {800, 600}}};
    for (const auto& c : cases) {
        ASSERT_TRUE(video.setupHardware(request(), c.width, c.height)) << SDL_GetError();
        EXPECT_EQ(windowSize(), c.window);
        EXPECT_EQ(framebufferSize(), c.framebuffer);
        EXPECT_STREQ(SDL_GetWindowTitle(window()), "Velmora");
    }
    const auto name = video.currentFramebuffer();
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(video.currentFramebuffer(), name);
    fill(0, 0, 800, 600, 1, 0, 1);
    for (unsigned absurd : {20000U, 2000000000U, UINT_MAX})
        video.resizeHardwareBuffers(absurd, 600);
    EXPECT_EQ(video.currentFramebuffer(), name) << "what cannot be costs nothing";
    EXPECT_EQ(screenshot().at(799, 599), 0xff00ffU);

    video.resizeHardwareBuffers(100, 100);
    EXPECT_EQ(framebufferSize(), (SDL_Point{256, 224}));
    const auto small = video.currentFramebuffer();
    video.resizeHardwareBuffers(256, 7);
    EXPECT_EQ(video.currentFramebuffer(), small) << "the same size after the floor";
    EXPECT_EQ(SdlVideo::framebufferThunk(), small);
}

TEST_F(HardwareFrameTest, DepthAndStencilComeAsAskedAlsoAfterAResize) {
    struct {
        bool depth, stencil;
        int depthBits, stencilBits;
    } const cases[] = {
        {false, false, 0, 0}, {true, false, 24, 0}, {false, true, 24, 8}, {true, true, 24, 8}};
    for (const auto& c : cases) {
        retro_hw_render_callback record = request();
        record.depth = c.depth;
        record.stencil = c.stencil;
        ASSERT_TRUE(video.setupHardware(record, 320, 240)) << SDL_GetError();
        for (unsigned width : {640U, 1000U}) {
            SCOPED_TRACE(testing::Message() << c.depth << c.stencil << " at " << width);
            video.resizeHardwareBuffers(width, 480);
            bindCoreFramebuffer();
            EXPECT_EQ(CORE_GL(glCheckFramebufferStatus, GL_FRAMEBUFFER),
                      static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE));
            const std::pair<GLenum, std::pair<GLenum, int>> expected[] = {
                {GL_DEPTH_ATTACHMENT, {GL_FRAMEBUFFER_ATTACHMENT_DEPTH_SIZE, c.depthBits}},
                {GL_STENCIL_ATTACHMENT, {GL_FRAMEBUFFER_ATTACHMENT_STENCIL_SIZE, c.stencilBits}}};
            for (const auto& [attachment, size] : expected) {
                const bool there =
                    attachmentInt(attachment, GL_FRAMEBUFFER_ATTACHMENT_OBJECT_TYPE) != GL_NONE;
                EXPECT_EQ(there ? attachmentInt(attachment, size.first) : 0, size.second);
            }
        }
    }
}

TEST_F(HardwareFrameTest, ThePictureIsUprightFittedAndBarred) {
    constexpr Uint32 red = 0xff0000;
    constexpr Uint32 green = 0x00ff00;
    constexpr Uint32 blue = 0x0000ff;
    constexpr Uint32 white = 0xffffff;
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
            drawQuarters(c.frameW, c.frameH);
            video.present();
            const Picture window = shown();
            const SDL_Rect& p = c.picture;
            const int top = p.y + 1;
            const int bottom = p.y + p.h - 2;
            const int left = p.x + 1;
            const int right = p.x + p.w - 2;
            EXPECT_EQ(window.at(left, top), bottomLeft ? blue : red);
            EXPECT_EQ(window.at(right, top), bottomLeft ? white : green);
            EXPECT_EQ(window.at(left, bottom), bottomLeft ? red : blue);
            EXPECT_EQ(window.at(right, bottom), bottomLeft ? green : white);
            for (int y = 0; y < 480; ++y) {
                for (int x = 0; x < 640; ++x) {
                    const SDL_Point at = {x, y};
                    ASSERT_EQ(window.at(x, y) == bars, !SDL_PointInRect(&at, &p)) << at;
                }
            }
            const Picture file = screenshot();
            const int row = bottomLeft ? 480 - c.frameH : 0;
            EXPECT_EQ(file.at(0, row), bottomLeft ? blue : red);
            EXPECT_EQ(file.at(c.frameW - 1, row), bottomLeft ? white : green);
            EXPECT_EQ(file.at(0, row + c.frameH - 1), bottomLeft ? red : blue);
            EXPECT_EQ(file.at(c.frameW - 1, row + c.frameH - 1), bottomLeft ? green : white);
        }
    }
}

TEST_F(HardwareFrameTest, OddFramebuffersAndOversizedFramesAreShownWhole) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    video.resizeHardwareBuffers(641, 481);
    drawQuarters(641, 481);
    fill(0, 240, 641, 1, 0.2F, 0.4F, 0.6F);
    const Picture file = screenshot();
    ASSERT_EQ(file.height(), 481);
    EXPECT_EQ(file.at(320, 240), 0x336699U) << "the row in the middle";
    EXPECT_EQ(file.at(0, 239), 0x0000ffU);
    EXPECT_EQ(file.at(0, 241), 0xff0000U);
    EXPECT_EQ(file.at(0, 480), 0xff0000U);
    EXPECT_EQ(file.at(640, 0), 0xffffffU);

    video.upload(RETRO_HW_FRAME_BUFFER_VALID, 5000, 4000, 0);
    video.upload(RETRO_HW_FRAME_BUFFER_VALID, UINT_MAX, UINT_MAX, 0);
    video.upload(RETRO_HW_FRAME_BUFFER_VALID, 0, 480, 0);
    video.present();
    EXPECT_EQ(shown().at(2, 478), 0xff0000U);
    EXPECT_EQ(shown().at(638, 1), 0xffffffU) << "what is allocated is what is there";
}

TEST_F(HardwareFrameTest, TheCoreHearsOfItsContextAtTheRightMoments) {
    ASSERT_TRUE(video.setupHardware(request(), 320, 240)) << SDL_GetError();
    ASSERT_TRUE(video.create("A game", 800, 800));
    EXPECT_STREQ(SDL_GetWindowTitle(window()), "A game");
    EXPECT_EQ(windowSize(), (SDL_Point{640, 480})) << "retitled only";
    using Calls = std::vector<std::string>;
    EXPECT_EQ(fake.calls, Calls{"reset"});

    ASSERT_TRUE(video.setupHardware(request(RETRO_HW_CONTEXT_OPENGL), 400, 300));
    EXPECT_EQ(fake.calls, (Calls{"reset", "destroy", "reset"})) << "OpenGL asked for twice";
    EXPECT_EQ(windowCount(), 1);
    EXPECT_EQ(windowSize(), (SDL_Point{800, 600}));
    SdlVideo other;
    other.destroy();
    EXPECT_NE(SdlVideo::framebufferThunk(), 0U) << "another object's end is none of ours";

    SDL_GL_MakeCurrent(nullptr, nullptr);
    video.destroy();
    EXPECT_EQ(fake.calls, (Calls{"reset", "destroy", "reset", "destroy"}));
    EXPECT_EQ(SdlVideo::framebufferThunk(), 0U);
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    video.destroy();
    ASSERT_TRUE(video.create("software", 160, 144));
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    EXPECT_EQ(fake.calls.size(), 4U);
}

TEST_F(HardwareFrameTest, ACoreMayAskForMoreFromWithinItsCallbacks) {
    auto record = std::make_unique<retro_hw_render_callback>(request());
    const retro_hw_render_callback& inCoreMemory = *record;
    bool granted = false;
    const auto askAgain = [&] {
        video.resizeHardwareBuffers(800, 600);
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, 800, 600, 0);
        granted = granted || video.setupHardware(request(), 320, 240);
        video.create("from inside", 160, 144);
    };
    fake.onReset = askAgain;
    ASSERT_TRUE(video.setupHardware(inCoreMemory, 320, 240)) << SDL_GetError();
    EXPECT_EQ(windowSize(), (SDL_Point{640, 480}));
    EXPECT_EQ(framebufferSize(), (SDL_Point{800, 600}));
    drawQuarters(800, 600);
    video.present();
    EXPECT_EQ(shown().at(2, 478), 0xff0000U);

    // The core gives its record up when the context goes, and then asks with that very record.
    fake.onDestroy = [&] {
        askAgain();
        video.destroy();
        record.reset();
    };
    ASSERT_TRUE(video.setupHardware(inCoreMemory, 400, 300)) << SDL_GetError();
    fake.onDestroy = askAgain;
    video.destroy();
    EXPECT_FALSE(granted);
    EXPECT_EQ(windowCount(), 0);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"reset", "destroy", "reset", "destroy"}));
}

} // namespace
} // namespace velmora::test
