#include <velmora/sdl_video.h>

#include <SDL3/SDL_render.h>

#include <cstring>
#include <limits>

#include "support/no_throw.h"
#include "video/pixel_conversion.h"

namespace velmora {
namespace {

constexpr unsigned int maxInt = std::numeric_limits<int>::max();

// Sizes come from the core: its rows must hold what it says, and SDL counts in int.
bool isPlausible(unsigned int width, unsigned int height, std::size_t pitch,
                 unsigned int bytesPerPixel) {
    return width != 0 && height != 0 && width <= maxInt / sizeof(std::uint32_t) &&
           height <= maxInt && pitch >= std::size_t{width} * bytesPerPixel && pitch <= maxInt;
}

} // namespace

void SdlVideo::setPixelFormat(unsigned int format) { pixelFormat = format; }

void SdlVideo::upload(const void* data, unsigned int width, unsigned int height,
                      std::size_t pitch) {
    if (hardware) {
        noteFrameSize(width, height);
        return;
    }
    // A frame said to be in a hardware framebuffer, without a hardware session, has no pixels.
    if (!renderer || !data || data == RETRO_HW_FRAME_BUFFER_VALID)
        return;
    const bool converts = pixelFormat != RETRO_PIXEL_FORMAT_XRGB8888;
    if (!isPlausible(width, height, pitch, converts ? 2 : 4))
        return;
    ensureTexture(width, height);
    if (!texture)
        return;
    if (!converts) {
        SDL_UpdateTexture(texture, nullptr, data, static_cast<int>(pitch));
        return;
    }
    // A frame for which there is no memory is dropped.
    noThrow([&] {
        convertFrame(static_cast<const unsigned char*>(data), width, height, pitch);
        SDL_UpdateTexture(texture, nullptr, converted.data(), static_cast<int>(width * 4));
    });
}

void SdlVideo::noteFrameSize(unsigned int width, unsigned int height) {
    if (width == 0 || height == 0 || width > maxInt || height > maxInt)
        return;
    frameWidth = static_cast<int>(width);
    frameHeight = static_cast<int>(height);
}

void SdlVideo::convertFrame(const unsigned char* data, unsigned int width, unsigned int height,
                            std::size_t pitch) {
    converted.resize(std::size_t{width} * height);
    for (std::size_t row = 0; row < height; ++row)
        convertRow(data + row * pitch, converted.data() + row * width, width);
}

void SdlVideo::convertRow(const unsigned char* src, unsigned int* dst, unsigned int width) {
    switch (pixelFormat) {
    case RETRO_PIXEL_FORMAT_XRGB8888:
        std::memcpy(dst, src, std::size_t{width} * 4);
        break;
    case RETRO_PIXEL_FORMAT_RGB565:
        convertRowRgb565(src, dst, width);
        break;
    default:
        convertRow0rgb1555(src, dst, width);
    }
}

void SdlVideo::ensureTexture(unsigned int width, unsigned int height) {
    const int w = static_cast<int>(width);
    const int h = static_cast<int>(height);
    if (texture && textureWidth == w && textureHeight == h)
        return;
    if (texture)
        SDL_DestroyTexture(texture);
    texture =
        SDL_CreateTexture(renderer, SDL_PIXELFORMAT_XRGB8888, SDL_TEXTUREACCESS_STREAMING, w, h);
    if (texture)
        SDL_SetTextureScaleMode(texture, SDL_SCALEMODE_NEAREST);
    textureWidth = frameWidth = w;
    textureHeight = frameHeight = h;
}

} // namespace velmora
