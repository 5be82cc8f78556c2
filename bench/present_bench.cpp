// Showing a frame against bare SDL calls that show the same texture, and what the overlay adds.
#include <SDL3/SDL.h>

#include <benchmark/benchmark.h>

#include <vector>

#include <velmora/sdl_video.h>

#include "ratio_table.h"

namespace velmora::bench {
namespace {

constexpr int frameWidth = 256;
constexpr int frameHeight = 224;
const std::vector<std::uint32_t> picture(frameWidth* frameHeight, 0x336699U);

void showMenu(SdlVideo& video) {
    video.hud.menuOpen = true;
    video.hud.screen = 1;
    video.hud.slotNames.assign(10, "A place to go on");
}

// The first frames are not measured: a driver compiles its shaders in them.
void presentAgain(benchmark::State& state, SdlVideo& video) {
    for (int frame = 0; frame < 10; ++frame)
        video.present();
    for (auto _ : state)
        video.present();
}

// No vsync: waiting for a display is not work. SDL's software renderer and offscreen windows have
// none.
void presentSoftware(benchmark::State& state, bool overlay) {
    SdlVideo video;
    if (!video.create("bench", frameWidth, frameHeight)) {
        state.SkipWithError(SDL_GetError());
        return;
    }
    video.setPixelFormat(RETRO_PIXEL_FORMAT_XRGB8888);
    video.upload(picture.data(), frameWidth, frameHeight, frameWidth * 4);
    if (overlay)
        showMenu(video);
    presentAgain(state, video);
}

SDL_Renderer* createRenderer(SDL_Window* window) {
    for (const char* name : {"direct3d11", "direct3d", "opengl", "software"}) {
        if (SDL_Renderer* renderer = SDL_CreateRenderer(window, name))
            return renderer;
    }
    return nullptr;
}

void bareSoftware(benchmark::State& state) {
    SDL_Window* window =
        SDL_CreateWindow("bench", frameWidth * 3, frameHeight * 3, SDL_WINDOW_RESIZABLE);
    SDL_Renderer* renderer = createRenderer(window);
    SDL_SetRenderVSync(renderer, 1);
    SDL_Texture* texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_XRGB8888,
                                             SDL_TEXTUREACCESS_STREAMING, frameWidth, frameHeight);
    SDL_SetTextureScaleMode(texture, SDL_SCALEMODE_NEAREST);
    SDL_UpdateTexture(texture, nullptr, picture.data(), frameWidth * 4);
    for (auto _ : state) {
        SDL_SetRenderDrawColor(renderer, 8, 10, 16, 255);
        SDL_RenderClear(renderer);
        SDL_RenderTexture(renderer, texture, nullptr, nullptr);
        SDL_RenderPresent(renderer);
    }
    SDL_DestroyTexture(texture);
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}

retro_hw_render_callback openGlRequest() {
    retro_hw_render_callback request = {};
    request.context_type = RETRO_HW_CONTEXT_OPENGL;
    return request;
}

void presentHardware(benchmark::State& state, bool overlay) {
    SdlVideo video;
    if (!video.setupHardware(openGlRequest(), frameWidth, frameHeight)) {
        state.SkipWithError(SDL_GetError());
        return;
    }
    if (overlay)
        showMenu(video);
    presentAgain(state, video);
}

void resizeUnchanged(benchmark::State& state) {
    SdlVideo video;
    if (!video.setupHardware(openGlRequest(), 640, 480)) {
        state.SkipWithError(SDL_GetError());
        return;
    }
    for (auto _ : state)
        video.resizeHardwareBuffers(640, 480);
}

void nothing(benchmark::State& state) {
    for (auto _ : state)
        benchmark::ClobberMemory();
}

[[maybe_unused]] const bool registered = [] {
    benchmark::RegisterBenchmark("present", presentSoftware, false);
    benchmark::RegisterBenchmark("present_overlay", presentSoftware, true);
    benchmark::RegisterBenchmark("bare_present", bareSoftware);
    benchmark::RegisterBenchmark("present_gl", presentHardware, false);
    benchmark::RegisterBenchmark("present_gl_overlay", presentHardware, true);
    benchmark::RegisterBenchmark("resize_unchanged", resizeUnchanged);
    benchmark::RegisterBenchmark("nothing", nothing);
    addRatio({"present against bare SDL calls", "present", "bare_present", Aim::CostAtMost, 1.05});
    addRatio({"slot picker's cost a frame, renderer", "present_overlay", "present",
              Aim::NanosecondsEach, 1});
    addRatio({"slot picker's cost a frame, OpenGL", "present_gl_overlay", "present_gl",
              Aim::NanosecondsEach, 1});
    addRatio({"a resize to the same size", "resize_unchanged", "nothing", Aim::NanosecondsEach, 1});
    return true;
}();

} // namespace
} // namespace velmora::bench
