#include "video/window_picture.h"

#include <climits>
#include <dlfcn.h>
#include <set>
#include <tuple>

#include "overlay/posix/shown_menu.h"

// What the library asks of SDL where no picture tells, and what it does where SDL refuses. ELF
// finds a program's own functions before those of its libraries, so the library's calls come here.
namespace velmora::test {
namespace {

using Calls = std::vector<std::string>;

Calls calls;
std::set<std::string> refused; // functions of SDL, and of GL, that fail

std::string written(int value) { return " " + std::to_string(value); }
std::string written(const void*) { return ""; }
std::string written(const char* text) { return std::string(" ") + (text ? text : "any"); }

template <class Function, class... Arguments>
auto pass(const char* name, Arguments... arguments) {
    calls.push_back((name + ... + written(arguments)));
    if (refused.contains(name))
        return decltype(std::declval<Function*>()(arguments...))();
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name))(arguments...);
}

#define WATCHED(result, name, parameters, ...)                                                     \
    extern "C" __attribute__((visibility("default"))) result name parameters {                     \
        return pass<decltype(name)>(#name, __VA_ARGS__);                                           \
    }

} // namespace

WATCHED(SDL_Renderer*, SDL_CreateRenderer, (SDL_Window * w, const char* name), w, name)
WATCHED(bool, SDL_SetRenderVSync, (SDL_Renderer * r, int vsync), r, vsync)
WATCHED(bool, SDL_RenderPresent, (SDL_Renderer * r), r)
WATCHED(bool, SDL_SetRenderDrawBlendMode, (SDL_Renderer * r, SDL_BlendMode mode), r, mode)
WATCHED(SDL_Texture*, SDL_CreateTexture,
        (SDL_Renderer * r, SDL_PixelFormat format, SDL_TextureAccess access, int w, int h), r,
        format, access, w, h)
WATCHED(void, SDL_DestroyTexture, (SDL_Texture * t), t)
WATCHED(void, SDL_DestroyRenderer, (SDL_Renderer * r), r)
WATCHED(bool, SDL_SetWindowPosition, (SDL_Window * w, int x, int y), w, x, y)
WATCHED(bool, SDL_ShowWindow, (SDL_Window * w), w)
WATCHED(bool, SDL_RaiseWindow, (SDL_Window * w), w)
WATCHED(bool, SDL_SetWindowAlwaysOnTop, (SDL_Window * w, bool on), w, on)
WATCHED(bool, SDL_SetWindowFullscreen, (SDL_Window * w, bool on), w, on)
WATCHED(bool, SDL_GL_SetAttribute, (SDL_GLAttr attribute, int value), attribute, value)
WATCHED(bool, SDL_GL_SetSwapInterval, (int interval), interval)
WATCHED(bool, SDL_GL_MakeCurrent, (SDL_Window * w, SDL_GLContext context), w, context)
WATCHED(bool, SDL_GL_SwapWindow, (SDL_Window * w), w)
WATCHED(bool, SDL_GL_DestroyContext, (SDL_GLContext context), context)

extern "C" __attribute__((visibility("default"))) SDL_FunctionPointer
SDL_GL_GetProcAddress(const char* symbol) {
    return refused.contains(symbol)
               ? nullptr
               : pass<decltype(SDL_GL_GetProcAddress)>("SDL_GL_GetProcAddress", symbol);
}

namespace {

class SdlCalls : public VideoTest {
protected:
    ~SdlCalls() override { refused.clear(); }

    // Those of `names` that `work` makes.
    template <class Work>
    static Calls made(const std::set<std::string>& names, Work&& work) {
        calls.clear();
        work();
        std::erase_if(calls, [&](const std::string& call) {
            return !names.contains(call.substr(0, call.find(' ')));
        });
        return calls;
    }

    bool create() { return video.create("a window", 160, 144); }

    bool setUp(int width, int height) {
        video.destroy();
        contextCalls = 0;
        retro_hw_render_callback request = openGl();
        request.context_reset = request.context_destroy = [] { ++contextCalls; };
        return video.setupHardware(request, width, height);
    }

    inline static int contextCalls = 0;
};

TEST_F(SdlCalls, TryRenderersInOrderAndAtLastSdlsOwnChoice) {
    refused = {"SDL_CreateRenderer"};
    EXPECT_EQ(made({"SDL_CreateRenderer"}, [&] { EXPECT_FALSE(create()); }),
              (Calls{"SDL_CreateRenderer direct3d11", "SDL_CreateRenderer direct3d",
                     "SDL_CreateRenderer opengl", "SDL_CreateRenderer software",
                     "SDL_CreateRenderer any"}));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(SdlCalls, BringEveryWindowUpCentredInStepWithTheDisplayAndOnTop) {
    const std::string centre = " " + std::to_string(SDL_WINDOWPOS_CENTERED);
    for (const bool onTop : {false, true}) {
        EXPECT_TRUE(video.setAlwaysOnTop(onTop)); // without a window: a wish
        for (const bool onHardware : {false, true}) {
            video.destroy();
            Calls expected = {"SDL_SetWindowPosition" + centre + centre,
                              onHardware ? "SDL_GL_SetSwapInterval 1" : "SDL_SetRenderVSync 1",
                              "SDL_ShowWindow", "SDL_RaiseWindow"};
            if (onTop)
                expected.push_back("SDL_SetWindowAlwaysOnTop 1");
            EXPECT_EQ(made({"SDL_SetWindowPosition", "SDL_SetRenderVSync", "SDL_GL_SetSwapInterval",
                            "SDL_ShowWindow", "SDL_RaiseWindow", "SDL_SetWindowAlwaysOnTop"},
                           [&] { EXPECT_TRUE(onHardware ? setUp(320, 240) : create()); }),
                      expected);
        }
    }
}

TEST_F(SdlCalls, AskForTheContextThatTheCoreWants) {
    retro_hw_render_callback oldest = openGl(RETRO_HW_CONTEXT_OPENGL);
    retro_hw_render_callback newer = oldest;
    newer.version_major = 4;
    newer.depth = newer.debug_context = true;
    retro_hw_render_callback core = openGl();
    core.version_major = 4;
    core.version_minor = 2;
    core.stencil = true;
    const std::tuple<retro_hw_render_callback, int, int, int> cases[] = {
        {oldest, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY, 2, 1},
        {newer, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY, 4, 1},
        {openGl(), SDL_GL_CONTEXT_PROFILE_CORE, 3, 3},
        {core, SDL_GL_CONTEXT_PROFILE_CORE, 4, 2}};
    for (const auto& [request, profile, major, minor] : cases) {
        const auto set = [](SDL_GLAttr attribute, int value) {
            return "SDL_GL_SetAttribute" + written(attribute) + written(value);
        };
        std::set<std::string> wanted = {set(SDL_GL_CONTEXT_PROFILE_MASK, profile),
                                        set(SDL_GL_CONTEXT_MAJOR_VERSION, major),
                                        set(SDL_GL_CONTEXT_MINOR_VERSION, minor),
                                        set(SDL_GL_DOUBLEBUFFER, 1),
                                        set(SDL_GL_DEPTH_SIZE, request.depth ? 24 : 0),
                                        set(SDL_GL_STENCIL_SIZE, request.stencil ? 8 : 0)};
        if (request.debug_context)
            wanted.insert(set(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG));
        const Calls asked = made({"SDL_GL_SetAttribute"}, [&] {
            EXPECT_TRUE(video.setupHardware(request, 320, 240)) << SDL_GetError();
        });
        EXPECT_EQ(std::set(asked.begin(), asked.end()), wanted);
    }
}

TEST_F(SdlCalls, PutTheMenuBackWhereFullscreenIsRefused) {
    ASSERT_TRUE(create());
    for (const bool windowed : {true, false}) {
        refused = {"SDL_SetWindowFullscreen"};
        EXPECT_FALSE(video.toggleFullscreen());
        EXPECT_EQ(shownBar(window()) != nullptr, windowed);
        refused.clear();
        EXPECT_TRUE(video.toggleFullscreen());
        EXPECT_EQ(shownBar(window()) != nullptr, !windowed) << "what was refused counts";
    }
}

TEST_F(SdlCalls, KeepTheWishToStayOnTopThroughRefusalsAndFullscreen) {
    ASSERT_TRUE(create());
    const auto inAndOut = [&] {
        return made({"SDL_SetWindowFullscreen", "SDL_SetWindowAlwaysOnTop"},
                    [&] { EXPECT_TRUE(video.toggleFullscreen() && video.toggleFullscreen()); });
    };
    EXPECT_EQ(inAndOut(), (Calls{"SDL_SetWindowFullscreen 1", "SDL_SetWindowFullscreen 0"}));
    refused = {"SDL_SetWindowAlwaysOnTop"};
    EXPECT_FALSE(video.setAlwaysOnTop(true));
    refused.clear();
    PlayMenu* game = submenu(shownBar(window()), 0);
    EXPECT_FALSE(game->items[8].checked);
    video.onInitMenuPopup(game);
    EXPECT_TRUE(game->items[8].checked);
    EXPECT_EQ(inAndOut(), (Calls{"SDL_SetWindowFullscreen 1", "SDL_SetWindowFullscreen 0",
                                 "SDL_SetWindowAlwaysOnTop 1"}));
    const auto end = [&] { EXPECT_TRUE(video.toggleAlwaysOnTop()); };
    EXPECT_EQ(made({"SDL_SetWindowAlwaysOnTop"}, end), Calls{"SDL_SetWindowAlwaysOnTop 0"});
}

TEST_F(SdlCalls, ShowEachPictureOnceAndNoneBeforeTheFirst) {
    const auto shown = [&] {
        return made({"SDL_SetRenderDrawBlendMode", "SDL_RenderPresent", "SDL_GL_SwapWindow"},
                    [&] { video.present(); });
    };
    ASSERT_TRUE(setUp(320, 240));
    EXPECT_EQ(shown(), Calls{"SDL_GL_SwapWindow"});
    video.destroy();
    for (int window = 0; window < 2; ++window) {
        ASSERT_TRUE(create());
        EXPECT_EQ(shown(), Calls{});
        showPlain(160, 144, 0xffffff);
        EXPECT_EQ(shown(), Calls{"SDL_RenderPresent"});
    }
    video.hud.showMessage = true;
    EXPECT_EQ(shown(), (Calls{"SDL_SetRenderDrawBlendMode 1", "SDL_SetRenderDrawBlendMode 0",
                              "SDL_RenderPresent"}));
}

TEST_F(SdlCalls, GiveBackEveryTextureRendererAndContext) {
    ASSERT_TRUE(create());
    const auto show = [&] { showPlain(160, 144, 0x808080); };
    const std::set<std::string> ends = {"SDL_DestroyTexture", "SDL_DestroyRenderer",
                                        "SDL_GL_DestroyContext"};
    EXPECT_EQ(made({"SDL_CreateTexture"}, show).size(), 1U);
    EXPECT_EQ(made({"SDL_CreateTexture", "SDL_DestroyTexture"}, show), Calls{});
    EXPECT_EQ(made(ends, [&] { showPlain(100, 144, 0x808080); }), Calls{"SDL_DestroyTexture"});
    EXPECT_EQ(made(ends, [&] { EXPECT_TRUE(setUp(320, 240)); }),
              (Calls{"SDL_DestroyTexture", "SDL_DestroyRenderer"}));
    EXPECT_EQ(made(ends, [&] { video.destroy(); }), Calls{"SDL_GL_DestroyContext"});
}

TEST_F(SdlCalls, CostNothingWhileTheContextIsOutOfReach) {
    ASSERT_TRUE(setUp(320, 240));
    video.hud.menuOpen = true;
    video.present();
    refused = {"SDL_GL_MakeCurrent"};
    EXPECT_EQ(made({"SDL_GL_SwapWindow"}, [&] { video.present(); }), Calls{"SDL_GL_SwapWindow"});
    EXPECT_FALSE(video.captureScreenshot((directory / "lost.bmp").string()));
    video.resizeHardwareBuffers(800, 600);
    EXPECT_EQ(video.currentFramebuffer(), 0U);
    video.destroy();
    EXPECT_EQ(contextCalls, 1) << "the core's objects are gone with the context";

    EXPECT_FALSE(setUp(320, 240));
    EXPECT_EQ(contextCalls, 0);
    refused.clear();
    ASSERT_TRUE(create());
    EXPECT_EQ(windowSize(), (SDL_Point{480, 432})) << "not retitled only";
}

TEST_F(SdlCalls, DoWithoutAFunctionOfGlThatADriverLacks) {
    video.hud.menuOpen = true;
    const std::string file = (directory / "picture.bmp").string();
    for (const std::string name :
         {"glDeleteFramebuffers", "glDeleteTextures", "glReadPixels", "glPixelStorei",
          "glGetIntegerv", "glClear", "glClearColor", "glGenFramebuffers", "glBindFramebuffer",
          "glGenTextures", "glTexImage2D", "glBlitFramebuffer"}) {
        SCOPED_TRACE(name);
        refused = {name};
        ASSERT_TRUE(setUp(0, 0));
        const bool required = name.find("Gen") == 2 || name.find("Bi") == 2 ||
                              name == "glTexImage2D" || name == "glBlitFramebuffer";
        EXPECT_EQ(video.currentFramebuffer() == 0, required);
        EXPECT_EQ(made({"SDL_GL_SwapWindow"}, [&] { video.present(); }).size(), 1U);
        EXPECT_EQ(video.captureScreenshot(file), name != "glReadPixels");
        if (!required)
            continue;
        const Picture picture(SDL_LoadBMP(file.c_str()));
        EXPECT_EQ(picture.width * 100 + picture.height, 101) << "the frame's size";
        video.upload(RETRO_HW_FRAME_BUFFER_VALID, INT_MAX, 1, 0);
        EXPECT_FALSE(video.captureScreenshot(file));
    }
}

} // namespace
} // namespace velmora::test
