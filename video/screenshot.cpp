#include <velmora/sdl_video.h>

#include <SDL3/SDL_render.h>
#include <SDL3/SDL_stdinc.h>
#include <SDL3/SDL_video.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>

#include "video/gl_functions.h"
#include "video/pixel_store.h"
#include "video/surface.h"

namespace velmora {
namespace {

struct MemoryDeleter {
    void operator()(void* memory) const { SDL_free(memory); }
};

using Pixels = std::unique_ptr<unsigned char, MemoryDeleter>;

constexpr int bytesPerPixel = 4;

bool save(const Surface& surface, const std::string& path) {
    return surface && SDL_SaveBMP(surface.get(), path.c_str());
}

// Zeroed; null for sizes that a surface cannot have or that memory cannot hold.
Pixels allocatePixels(int width, int height) {
    if (width <= 0 || height <= 0 || width > std::numeric_limits<int>::max() / bytesPerPixel)
        return nullptr;
    const auto rowBytes = std::uint64_t{bytesPerPixel} * static_cast<std::uint64_t>(width);
    return Pixels(static_cast<unsigned char*>(
        SDL_calloc(static_cast<std::size_t>(height), static_cast<std::size_t>(rowBytes))));
}

void flipRows(unsigned char* pixels, int width, int height) {
    const auto rowBytes = static_cast<std::size_t>(width) * bytesPerPixel;
    unsigned char* top = pixels;
    unsigned char* bottom = pixels + static_cast<std::size_t>(height) * rowBytes;
    for (int y = 0; y < height / 2; ++y, top += rowBytes) {
        bottom -= rowBytes;
        std::swap_ranges(top, top + rowBytes, bottom);
    }
}

} // namespace

bool SdlVideo::captureScreenshot(const std::string& path) {
    if (path.empty())
        return false;
    return hardware ? captureHardware(path) : captureSoftware(path);
}

bool SdlVideo::captureSoftware(const std::string& path) {
    if (!renderer)
        return false;
    // While a resize is on its way, Mesa reads beyond the picture that it still has.
    SDL_SyncWindow(window);
    return save(Surface(SDL_RenderReadPixels(renderer, nullptr)), path);
}

bool SdlVideo::captureHardware(const std::string& path) {
    if (!makeCurrent() || !gl.glReadPixels)
        return false;
    const int width = fboWidth != 0 ? static_cast<int>(fboWidth) : frameWidth;
    const int height = fboHeight != 0 ? static_cast<int>(fboHeight) : frameHeight;
    const Pixels pixels = allocatePixels(width, height);
    if (!pixels)
        return false;

    if (fbo != 0)
        gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, fbo);
    moveTightRows(gl.glGetIntegerv, gl.glPixelStorei, packNames, [&] {
        gl.glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.get());
    });
    if (fbo != 0)
        gl.glBindFramebuffer(GL_FRAMEBUFFER, 0);
    // GL gives the rows of its own origin bottom first, and a file begins at the top.
    if (hwRender.bottom_left_origin)
        flipRows(pixels.get(), width, height);
    return save(Surface(SDL_CreateSurfaceFrom(width, height, SDL_PIXELFORMAT_ABGR8888, pixels.get(),
                                              width * bytesPerPixel)),
                path);
}

} // namespace velmora
