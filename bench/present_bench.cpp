// Showing a frame against the SDL and OpenGL calls that show the same one, and what the overlay
// adds.
#include <SDL3/SDL.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include <velmora/sdl_video.h>

#include "gl.h"
#include "ratio_table.h"
#include "video/fit_rect.h"

namespace velmora::bench {
namespace {

constexpr int frameWidth = 256;
constexpr int frameHeight = 224;
const std::vector<std::uint32_t> picture(frameWidth* frameHeight, 0x336699U);

template <class Handle>
Handle* require(Handle* handle) {
    return handle ? handle : throw std::runtime_error(SDL_GetError());
}

void require(bool done) {
    if (!done)
        throw std::runtime_error(SDL_GetError());
}

// A window such as SdlVideo opens.
class BareWindow {
public:
    BareWindow(int width, int height, SDL_WindowFlags kind)
        : window(require(
              SDL_CreateWindow("bench", width, height,
                               kind | SDL_WINDOW_RESIZABLE | SDL_WINDOW_HIGH_PIXEL_DENSITY))) {
        SDL_SetWindowPosition(window, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
        SDL_RaiseWindow(window);
    }
    ~BareWindow() { SDL_DestroyWindow(window); }
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;

protected:
    SDL_Window* window;
};

// SDL's calls for a picture in the rectangle that it fits in.
class BareRenderer : BareWindow {
public:
    BareRenderer() : BareWindow(frameWidth * 3, frameHeight * 3, 0) {
        for (const char* name : {"direct3d11", "direct3d", "opengl", "software"})
            renderer = renderer ? renderer : SDL_CreateRenderer(window, name);
        SDL_SetRenderVSync(require(renderer), 1);
        texture = require(SDL_CreateTexture(renderer, SDL_PIXELFORMAT_XRGB8888,
                                            SDL_TEXTUREACCESS_STREAMING, frameWidth, frameHeight));
        SDL_SetTextureScaleMode(texture, SDL_SCALEMODE_NEAREST);
        SDL_UpdateTexture(texture, nullptr, picture.data(), frameWidth * 4);
    }
    ~BareRenderer() { SDL_DestroyRenderer(renderer); }

    void present() const {
        int width = 0;
        int height = 0;
        SDL_GetRenderOutputSize(renderer, &width, &height);
        const FitRect fit = fitRect(frameWidth, frameHeight, width, height);
        const SDL_FRect place = {float(fit.x), float(fit.y), float(fit.w), float(fit.h)};
        SDL_SetRenderDrawColor(renderer, 8, 10, 16, 255);
        SDL_RenderClear(renderer);
        SDL_RenderTexture(renderer, texture, nullptr, &place);
        SDL_RenderPresent(renderer);
    }

private:
    SDL_Renderer* renderer = nullptr;
    SDL_Texture* texture = nullptr;
};

// OpenGL's calls for a core's framebuffer of the least size that SdlVideo makes.
class BareGl : BareWindow {
public:
    BareGl() : BareWindow(640, 480, SDL_WINDOW_OPENGL) {
        SDL_GL_SetSwapInterval(1);
        GLuint texture = 0;
        VELMORA_BENCH_GL(glGenTextures)(1, &texture);
        VELMORA_BENCH_GL(glBindTexture)(GL_TEXTURE_2D, texture);
        VELMORA_BENCH_GL(glTexImage2D)
        (GL_TEXTURE_2D, 0, GL_RGBA8, 640, 480, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        VELMORA_BENCH_GL(glGenFramebuffers)(1, &framebuffer);
        bind(GL_FRAMEBUFFER, framebuffer);
        VELMORA_BENCH_GL(glFramebufferTexture2D)
        (GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    }
    ~BareGl() { SDL_GL_DestroyContext(context); }

    void present() const {
        int width = 0;
        int height = 0;
        SDL_GL_MakeCurrent(window, context);
        SDL_GetWindowSizeInPixels(window, &width, &height);
        const FitRect fit = fitRect(frameWidth, frameHeight, width, height);
        bind(GL_DRAW_FRAMEBUFFER, 0);
        clearColor(0.03F, 0.04F, 0.06F, 1.0F);
        clear(GL_COLOR_BUFFER_BIT);
        bind(GL_READ_FRAMEBUFFER, framebuffer);
        blit(0, 0, frameWidth, frameHeight, fit.x, fit.y + fit.h, fit.x + fit.w, fit.y,
             GL_COLOR_BUFFER_BIT, GL_NEAREST);
        bind(GL_FRAMEBUFFER, 0);
        SDL_GL_SwapWindow(window);
    }

private:
    SDL_GLContext context = require(SDL_GL_CreateContext(window));
    decltype(&::glBindFramebuffer) bind = VELMORA_BENCH_GL(glBindFramebuffer);
    decltype(&::glBlitFramebuffer) blit = VELMORA_BENCH_GL(glBlitFramebuffer);
    decltype(&::glClear) clear = VELMORA_BENCH_GL(glClear);
    decltype(&::glClearColor) clearColor = VELMORA_BENCH_GL(glClearColor);
    GLuint framebuffer = 0;
};

template <class Output>
Side presents(Output& output, std::function<void()> enter) {
    const auto present = [&output] {
        output.present();
        finishFrame();
    };
    return {present, std::move(enter)};
}

// With the pause menu's slot picker or without.
Side presents(SdlVideo& video, bool picker) {
    return presents(video, [&video, picker] { video.hud.menuOpen = picker; });
}

template <class Bare>
void measurePath(const RatioTable& table, SdlVideo& video, const std::string& path,
                 const char* against) {
    video.hud.screen = 1;
    video.hud.slotNames.assign(10, "A place to go on");
    const Bare bare;
    table.ratio({"`present`, " + path, against, Clock::Process, 1.05}, presents(video, false),
                presents(bare, [] {}));
    table.surplus({"a slot picker, " + path, "`present` without it", Clock::Process}, 1,
                  presents(video, true), presents(video, false));
}

} // namespace

void measurePresent(const RatioTable& table) {
    SdlVideo video;
    require(video.create("bench", frameWidth, frameHeight));
    video.setPixelFormat(RETRO_PIXEL_FORMAT_XRGB8888);
    video.upload(picture.data(), frameWidth, frameHeight, frameWidth * 4);
    measurePath<BareRenderer>(table, video, "SDL's renderer", "the same SDL calls");

    retro_hw_render_callback request = {};
    request.context_type = RETRO_HW_CONTEXT_OPENGL;
    require(video.setupHardware(request, frameWidth, frameHeight));
    measurePath<BareGl>(table, video, "OpenGL", "the same OpenGL calls");
}

} // namespace velmora::bench
