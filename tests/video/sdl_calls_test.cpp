#include "video/window_picture.h"

#include <algorithm>
#include <climits>
#include <dlfcn.h>
#include <set>
#include <span>
#include <type_traits>

#include <velmora/play_menu.h>

// What the library asks of SDL where the picture does not tell, and what it does where SDL refuses.
// ELF finds a program's own functions before those of its libraries, so the library's calls come
// here first.
namespace velmora::test {
namespace {

using Calls = std::vector<std::string>;

Calls calls;
std::set<std::string> refused; // functions of SDL, and of GL, that fail

template <class Argument>
std::string written(Argument argument) {
    if constexpr (std::is_integral_v<Argument> || std::is_enum_v<Argument>)
        return " " + std::to_string(argument);
    else if constexpr (std::is_same_v<Argument, const char*>)
        return argument ? std::string(" ") + argument : " any";
    else
        return "";
}

template <class Function, class... Arguments>
auto pass(const char* name, Arguments... arguments) {
    using Result = decltype(std::declval<Function*>()(arguments...));
    calls.push_back((name + ... + written(arguments)));
    if (refused.contains(name))
        return Result();
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name))(arguments...);
}

#define PASS(name, ...) return pass<decltype(name)>(#name, __VA_ARGS__)

} // namespace

#pragma GCC visibility push(default)
extern "C" {
SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, const char* name) {
    PASS(SDL_CreateRenderer, window, name);
}
bool SDL_SetRenderVSync(SDL_Renderer* renderer, int vsync) {
    PASS(SDL_SetRenderVSync, renderer, vsync);
}
bool SDL_RenderPresent(SDL_Renderer* renderer) { PASS(SDL_RenderPresent, renderer); }
SDL_Texture* SDL_CreateTexture(SDL_Renderer* renderer, SDL_PixelFormat format,
                               SDL_TextureAccess access, int w, int h) {
    PASS(SDL_CreateTexture, renderer, format, access, w, h);
}
void SDL_DestroyTexture(SDL_Texture* texture) { PASS(SDL_DestroyTexture, texture); }
void SDL_DestroyRenderer(SDL_Renderer* renderer) { PASS(SDL_DestroyRenderer, renderer); }
bool SDL_SetWindowPosition(SDL_Window* window, int x, int y) {
    PASS(SDL_SetWindowPosition, window, x, y);
}
bool SDL_ShowWindow(SDL_Window* window) { PASS(SDL_ShowWindow, window); }
bool SDL_RaiseWindow(SDL_Window* window) { PASS(SDL_RaiseWindow, window); }
bool SDL_SetWindowAlwaysOnTop(SDL_Window* window, bool on) {
    PASS(SDL_SetWindowAlwaysOnTop, window, on);
}
bool SDL_SetWindowFullscreen(SDL_Window* window, bool on) {
    PASS(SDL_SetWindowFullscreen, window, on);
}
bool SDL_GL_SetAttribute(SDL_GLAttr attribute, int value) {
    PASS(SDL_GL_SetAttribute, attribute, value);
}
bool SDL_GL_SetSwapInterval(int interval) { PASS(SDL_GL_SetSwapInterval, interval); }
bool SDL_GL_MakeCurrent(SDL_Window* window, SDL_GLContext context) {
    PASS(SDL_GL_MakeCurrent, window, context);
}
bool SDL_GL_SwapWindow(SDL_Window* window) { PASS(SDL_GL_SwapWindow, window); }
bool SDL_GL_DestroyContext(SDL_GLContext context) { PASS(SDL_GL_DestroyContext, context); }
SDL_FunctionPointer SDL_GL_GetProcAddress(const char* symbol) {
    if (refused.contains(symbol))
        return nullptr;
    PASS(SDL_GL_GetProcAddress, symbol);
}
}
#pragma GCC visibility pop

namespace {

class SdlCalls : public VideoTest {
protected:
    ~SdlCalls() override { refused.clear(); }

    // Those since the last time that begin with one of `names`.
    static Calls take(const std::set<std::string>& names) {
        Calls taken;
        for (const std::string& call : std::exchange(calls, {})) {
            if (names.contains(call.substr(0, call.find(' '))))
                taken.push_back(call);
        }
        return taken;
    }

    static const void* menuBar() {
        return SDL_GetPointerProperty(SDL_GetWindowProperties(window()), playMenuProperty, nullptr);
    }

    bool setUp(int width, int height) {
        video.destroy();
        contextCalls = 0;
        retro_hw_render_callback request = {};
        request.context_type = RETRO_HW_CONTEXT_OPENGL_CORE;
        request.context_reset = request.context_destroy = [] { ++contextCalls; };
        return video.setupHardware(request, width, height);
    }

    inline static int contextCalls = 0;
};

TEST_F(SdlCalls, TryRenderersInOrderAndAtLastSdlsOwnChoice) {
    const Calls inOrder = {"SDL_CreateRenderer direct3d11", "SDL_CreateRenderer direct3d",
                           "SDL_CreateRenderer opengl", "SDL_CreateRenderer software",
                           "SDL_CreateRenderer any"};
    ASSERT_TRUE(video.create("first", 160, 144));
    const Calls tried = take({"SDL_CreateRenderer"});
    EXPECT_LT(tried.size(), inOrder.size()) << "goes on after one that came up";
    EXPECT_TRUE(std::ranges::equal(tried, std::span(inOrder).first(tried.size())));

    refused = {"SDL_CreateRenderer"};
    EXPECT_FALSE(video.create("none", 160, 144));
    EXPECT_EQ(take({"SDL_CreateRenderer"}), inOrder);
    EXPECT_EQ(window(), nullptr);
}

TEST_F(SdlCalls, BringEveryWindowUpCentredInStepWithTheDisplayAndOnTop) {
    const std::string centre = std::to_string(SDL_WINDOWPOS_CENTERED);
    const Calls shown = {"SDL_ShowWindow", "SDL_RaiseWindow", "SDL_SetWindowAlwaysOnTop 1"};
    const std::set<std::string> names = {"SDL_SetWindowPosition",  "SDL_SetRenderVSync",
                                         "SDL_GL_SetSwapInterval", "SDL_ShowWindow",
                                         "SDL_RaiseWindow",        "SDL_SetWindowAlwaysOnTop"};
    for (const bool onTop : {false, true}) {
        video.setAlwaysOnTop(onTop);
        for (const char* pace : {"SDL_SetRenderVSync 1", "SDL_GL_SetSwapInterval 1"}) {
            video.destroy();
            calls.clear();
            ASSERT_TRUE(pace[4] == 'S' ? video.create("centred", 160, 144) : setUp(320, 240));
            Calls expected = {"SDL_SetWindowPosition " + centre + " " + centre, pace};
            expected.insert(expected.end(), shown.begin(), shown.end() - (onTop ? 0 : 1));
            EXPECT_EQ(take(names), expected);
        }
    }
}

TEST_F(SdlCalls, AskForTheDepthStencilAndDebuggingThatTheCoreWants) {
    for (int wanted = 0; wanted < 8; ++wanted) {
        retro_hw_render_callback request = {};
        request.context_type = RETRO_HW_CONTEXT_OPENGL;
        request.depth = (wanted & 1) != 0;
        request.stencil = (wanted & 2) != 0;
        request.debug_context = (wanted & 4) != 0;
        calls.clear();
        ASSERT_TRUE(video.setupHardware(request, 320, 240)) << SDL_GetError();
        const auto asks = [](SDL_GLAttr attribute, int value) {
            const std::string name = "SDL_GL_SetAttribute" + written(attribute);
            return std::ranges::count(calls, name + written(value));
        };
        EXPECT_EQ(asks(SDL_GL_DOUBLEBUFFER, 1), 1);
        EXPECT_EQ(asks(SDL_GL_DEPTH_SIZE, request.depth ? 24 : 0), 1);
        EXPECT_EQ(asks(SDL_GL_STENCIL_SIZE, request.stencil ? 8 : 0), 1);
        EXPECT_EQ(asks(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG),
                  request.debug_context ? 1 : 0);
    }
}

TEST_F(SdlCalls, PutTheMenuBackWhereFullscreenIsRefused) {
    ASSERT_TRUE(video.create("menu", 160, 144));
    const void* bar = menuBar();
    ASSERT_NE(bar, nullptr);
    refused = {"SDL_SetWindowFullscreen"};
    EXPECT_FALSE(video.setFullscreen(true));
    EXPECT_EQ(menuBar(), bar);
    refused.clear();
    ASSERT_TRUE(video.toggleFullscreen()) << "what was refused counts";
    refused = {"SDL_SetWindowFullscreen"};
    EXPECT_FALSE(video.toggleFullscreen());
    EXPECT_EQ(menuBar(), nullptr);
    refused.clear();
    calls.clear();
    ASSERT_TRUE(video.toggleFullscreen());
    EXPECT_EQ(take({"SDL_SetWindowFullscreen"}), Calls{"SDL_SetWindowFullscreen 0"});
}

TEST_F(SdlCalls, KeepTheWishToStayOnTopThroughRefusalsAndFullscreen) {
    ASSERT_TRUE(video.create("top", 160, 144));
    calls.clear();
    ASSERT_TRUE(video.setFullscreen(true));
    ASSERT_TRUE(video.setFullscreen(false));
    EXPECT_EQ(take({"SDL_SetWindowAlwaysOnTop"}), Calls{}) << "nobody wished for it";
    refused = {"SDL_SetWindowAlwaysOnTop"};
    EXPECT_FALSE(video.setAlwaysOnTop(true));
    refused.clear();
    calls.clear();
    ASSERT_TRUE(video.setFullscreen(true));
    ASSERT_TRUE(video.setFullscreen(false));
    EXPECT_EQ(take({"SDL_SetWindowAlwaysOnTop"}), Calls{"SDL_SetWindowAlwaysOnTop 1"});
}

TEST_F(SdlCalls, ShowEachPictureOnceAndNoneBeforeTheFirst) {
    const std::set<std::string> shows = {"SDL_RenderPresent", "SDL_GL_SwapWindow"};
    ASSERT_TRUE(video.create("software", 160, 144));
    calls.clear();
    video.present();
    EXPECT_EQ(take(shows), Calls{});
    showPlain(160, 144, 0xffffff);
    EXPECT_EQ(take(shows), Calls(2, "SDL_RenderPresent"));
    ASSERT_TRUE(video.create("another", 160, 144));
    calls.clear();
    video.present();
    EXPECT_EQ(take(shows), Calls{}) << "the picture of the window before";
    ASSERT_TRUE(setUp(320, 240));
    calls.clear();
    video.present();
    EXPECT_EQ(take(shows), Calls{"SDL_GL_SwapWindow"});
}

TEST_F(SdlCalls, GiveBackEveryTextureRendererAndContext) {
    ASSERT_TRUE(video.create("textures", 160, 144));
    calls.clear();
    refused = {"SDL_CreateTexture"};
    showPlain(160, 144, 0x808080);
    refused.clear();
    for (const unsigned width : {160U, 100U, 100U, 160U})
        showPlain(width, 144, 0x808080);
    const auto named = [](const Calls& all, const char* name) {
        return std::ranges::count_if(all, [=](const auto& call) { return call.starts_with(name); });
    };
    const Calls taken = take({"SDL_CreateTexture", "SDL_DestroyTexture"});
    EXPECT_EQ(named(taken, "SDL_CreateTexture"), 4) << "one a size, and the one refused";
    EXPECT_EQ(named(taken, "SDL_DestroyTexture"), 2);

    const std::set<std::string> ends = {"SDL_DestroyTexture", "SDL_DestroyRenderer",
                                        "SDL_GL_DestroyContext"};
    ASSERT_TRUE(setUp(320, 240));
    EXPECT_EQ(take(ends), (Calls{"SDL_DestroyTexture", "SDL_DestroyRenderer"}));
    video.destroy();
    EXPECT_EQ(take(ends), Calls{"SDL_GL_DestroyContext"});
}

TEST_F(SdlCalls, CostNothingWhileTheContextIsOutOfReach) {
    ASSERT_TRUE(setUp(320, 240));
    video.hud.menuOpen = true;
    video.present();
    refused = {"SDL_GL_MakeCurrent"};
    calls.clear();
    video.present();
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    EXPECT_EQ(take({"SDL_GL_SwapWindow"}), Calls{"SDL_GL_SwapWindow"});
    EXPECT_FALSE(video.captureScreenshot((directory / "lost.bmp").string()));
    video.destroy();
    EXPECT_EQ(contextCalls, 1) << "the core's objects are gone with the context";

    EXPECT_FALSE(setUp(320, 240));
    EXPECT_EQ(contextCalls, 0);
    refused.clear();
    ASSERT_TRUE(video.create("software", 160, 144));
    EXPECT_EQ(windowSize(), (SDL_Point{480, 432}));
}

TEST_F(SdlCalls, DoWithoutAFunctionOfGlThatADriverLacks) {
    video.hud.menuOpen = true;
    const std::set<std::string> required = {"glGenFramebuffers", "glBindFramebuffer",
                                            "glGenTextures", "glTexImage2D", "glBlitFramebuffer"};
    for (const std::string name :
         {"glGenFramebuffers", "glBindFramebuffer", "glGenTextures", "glTexImage2D",
          "glBlitFramebuffer", "glDeleteFramebuffers", "glDeleteTextures", "glReadPixels",
          "glPixelStorei", "glGetIntegerv", "glClear", "glClearColor"}) {
        SCOPED_TRACE(name);
        refused = {name};
        ASSERT_TRUE(setUp(0, 0));
        EXPECT_EQ(contextCalls, 1);
        EXPECT_EQ(video.currentFramebuffer() == 0, required.contains(name));
        calls.clear();
        video.present();
        EXPECT_EQ(take({"SDL_GL_SwapWindow"}), Calls{"SDL_GL_SwapWindow"});
        const std::string file = (directory / "picture.bmp").string();
        EXPECT_EQ(video.captureScreenshot(file), name != "glReadPixels");
        if (required.contains(name)) {
            const Picture picture(SDL_LoadBMP(file.c_str()));
            EXPECT_EQ(picture.width * 100 + picture.height, 101) << "the frame's size";
            video.upload(RETRO_HW_FRAME_BUFFER_VALID, INT_MAX, 1, 0);
            EXPECT_FALSE(video.captureScreenshot(file));
        }
    }
}

} // namespace
} // namespace velmora::test
