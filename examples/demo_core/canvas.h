#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "game.h"

// A picture of 32-bit pixels, 0x00RRGGBB, and the few ways to draw on it. All of them clip.
namespace demo {

using Colour = std::uint32_t;

struct Canvas {
    std::array<Colour, std::size_t{screenWidth} * screenHeight> pixels;
};

// One string per row, one character per pixel; spriteColour gives each character its colour, and
// '.' lets the background through.
using Sprite = std::span<const std::string_view>;

// mix is 0 for all of `from`, 256 for all of `to`.
Colour blend(Colour from, Colour to, std::int32_t mix);

void plot(Canvas& canvas, std::int32_t x, std::int32_t y, Colour colour);
void fillRect(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t width,
              std::int32_t height, Colour colour);
void shadeRect(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t width,
               std::int32_t height, Colour colour, std::int32_t mix);
void fillDisc(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t radius, Colour colour,
              std::int32_t mix = 256);
void verticalGradient(Canvas& canvas, std::int32_t top, std::int32_t bottom, Colour from,
                      Colour to);
void drawSprite(Canvas& canvas, std::int32_t x, std::int32_t y, Sprite sprite,
                bool mirrored = false);

// Letters of 5 by 7 pixels in cells of 6 by 8, scaled up, with a dark shadow.
void drawText(Canvas& canvas, std::int32_t x, std::int32_t y, std::string_view text, Colour colour,
              std::int32_t scale = 1);
void drawCentredText(Canvas& canvas, std::int32_t y, std::string_view text, Colour colour,
                     std::int32_t scale = 1);
constexpr std::int32_t textWidth(std::string_view text, std::int32_t scale = 1) {
    return (static_cast<std::int32_t>(text.size()) * 6 - 1) * scale;
}

} // namespace demo
