#include <velmora/sdl_video.h>

#include <SDL3/SDL_error.h>
#include <SDL3/SDL_events.h>
#include <SDL3/SDL_render.h>
#include <SDL3/SDL_video.h>

#include <algorithm>
#include <cstdint>

#include "video/gl_functions.h"

namespace velmora {
namespace {

// Display servers count a window's pixels in 16 bits, and some end the program over more.
constexpr std::int64_t maxWindowSide = 16384;

SDL_Window* openCentredWindow(const std::string& title, std::int64_t width, std::int64_t height,
                              SDL_WindowFlags kind) {
    if (width > maxWindowSide || height > maxWindowSide) {
        SDL_SetError("Window is too large");
        return nullptr;
    }
    SDL_Window* window =
        SDL_CreateWindow(title.c_str(), static_cast<int>(width), static_cast<int>(height),
                         kind | SDL_WINDOW_RESIZABLE | SDL_WINDOW_HIGH_PIXEL_DENSITY);
    if (window)
        SDL_SetWindowPosition(window, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    return window;
}

// The first that comes up, the last being whatever SDL would choose.
SDL_Renderer* createRenderer(SDL_Window* window) {
    for (const char* name :
         {"direct3d11", "direct3d", "opengl", "software", static_cast<const char*>(nullptr)}) {
        if (SDL_Renderer* renderer = SDL_CreateRenderer(window, name))
            return renderer;
    }
    return nullptr;
}

void drainEvents() {
    SDL_Event ignored;
    while (SDL_PollEvent(&ignored)) {
    }
}

} // namespace

SdlVideo::~SdlVideo() { destroy(); }

bool SdlVideo::create(const std::string& title, int width, int height) {
    if (hardware && window) {
        setTitle(title);
        return true;
    }
    destroy();
    width = std::max(width, 160);
    height = std::max(height, 144);
    window = openCentredWindow(title, std::int64_t{width} * 3, std::int64_t{height} * 3, 0);
    if (!window)
        return false;
    renderer = createRenderer(window);
    if (!renderer) {
        destroy();
        return false;
    }
    SDL_SetRenderVSync(renderer, 1);
    showWindow();
    frameWidth = width;
    frameHeight = height;
    return true;
}

bool SdlVideo::createGlWindow(const std::string& title, int width, int height) {
    width = std::max(width, 320);
    height = std::max(height, 240);
    window = openCentredWindow(title, std::int64_t{width} * 2, std::int64_t{height} * 2,
                               SDL_WINDOW_OPENGL);
    if (!window)
        return false;
    glContext = SDL_GL_CreateContext(window);
    if (!glContext) {
        destroy();
        return false;
    }
    SDL_GL_SetSwapInterval(1);
    showWindow();
    return makeCurrent();
}

void SdlVideo::showWindow() {
    SDL_ShowWindow(window);
    SDL_RaiseWindow(window);
    if (alwaysOnTop)
        SDL_SetWindowAlwaysOnTop(window, true);
    attachNativeMenu();
}

void SdlVideo::destroy() {
    // A destroy from within the core's own callback must not call it again.
    if (hardware && hwRender.context_destroy && !inContextCallback && makeCurrent())
        runContextCallback(hwRender.context_destroy);
    const bool reachable = makeCurrent();
    deleteGlName(reachable ? gl.glDeleteTextures : nullptr, hudTexture);
    deleteGlName(reachable ? gl.glDeleteFramebuffers : nullptr, hudFbo);
    destroyFbo();
    destroyPicture();
    if (window) {
        detachNativeMenu();
        SDL_DestroyWindow(window);
        window = nullptr;
    }
    destroyNativeMenu();
    hwRender = {};
    textureWidth = 0;
    textureHeight = 0;
    hardware = false;
    fullscreen = false;
    if (active == this)
        active = nullptr;
    drainEvents();
}

void SdlVideo::destroyPicture() {
    if (texture)
        SDL_DestroyTexture(texture);
    texture = nullptr;
    if (renderer)
        SDL_DestroyRenderer(renderer);
    renderer = nullptr;
    if (glContext)
        SDL_GL_DestroyContext(glContext);
    glContext = nullptr;
}

} // namespace velmora
