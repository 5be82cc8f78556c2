#include "frame_output.h"

namespace demo {
namespace {

// Rows lie wider apart than they are long, as they do in many cores.
constexpr std::size_t rowDistance = 256;
std::array<std::uint16_t, rowDistance * screenHeight> packed;

constexpr std::uint16_t toRgb565(Colour colour) {
    return static_cast<std::uint16_t>((colour >> 8 & 0xf800) | (colour >> 5 & 0x07e0) |
                                      (colour >> 3 & 0x001f));
}

constexpr std::uint16_t to0Rgb1555(Colour colour) {
    return static_cast<std::uint16_t>((colour >> 9 & 0x7c00) | (colour >> 6 & 0x03e0) |
                                      (colour >> 3 & 0x001f));
}

template <typename Convert>
void sendPacked(retro_video_refresh_t refresh, const Canvas& canvas, Convert convert) {
    for (std::size_t y = 0; y < screenHeight; ++y)
        for (std::size_t x = 0; x < screenWidth; ++x)
            packed[y * rowDistance + x] = convert(canvas.pixels[y * screenWidth + x]);
    refresh(packed.data(), screenWidth, screenHeight, rowDistance * sizeof packed[0]);
}

} // namespace

retro_pixel_format negotiateFormat(retro_environment_t environment, retro_pixel_format wanted) {
    return environment(RETRO_ENVIRONMENT_SET_PIXEL_FORMAT, &wanted) ? wanted
                                                                    : RETRO_PIXEL_FORMAT_0RGB1555;
}

void sendFrame(retro_video_refresh_t refresh, const Canvas& canvas, retro_pixel_format format) {
    if (format == RETRO_PIXEL_FORMAT_XRGB8888)
        refresh(canvas.pixels.data(), screenWidth, screenHeight, screenWidth * sizeof(Colour));
    else if (format == RETRO_PIXEL_FORMAT_RGB565)
        sendPacked(refresh, canvas, toRgb565);
    else
        sendPacked(refresh, canvas, to0Rgb1555);
}

} // namespace demo
