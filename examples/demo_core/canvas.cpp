#include "canvas.h"

#include <algorithm>

#include "font.h"
#include "sprites.h"

namespace demo {
namespace {

constexpr Colour shadowColour = 0x1a2030;

constexpr bool inside(std::int32_t x, std::int32_t y) {
    return x >= 0 && x < screenWidth && y >= 0 && y < screenHeight;
}

Colour& at(Canvas& canvas, std::int32_t x, std::int32_t y) {
    return canvas.pixels[static_cast<std::size_t>(y * screenWidth + x)];
}

void drawGlyph(Canvas& canvas, std::int32_t x, std::int32_t y, const Glyph& glyph, Colour colour,
               std::int32_t scale) {
    for (std::int32_t row = 0; row < glyphHeight; ++row)
        for (std::int32_t column = 0; column < glyphWidth; ++column)
            if ((glyph[static_cast<std::size_t>(row)] >> (glyphWidth - 1 - column) & 1) != 0)
                fillRect(canvas, x + column * scale, y + row * scale, scale, scale, colour);
}

} // namespace

Colour blend(Colour from, Colour to, std::int32_t mix) {
    const auto part = static_cast<Colour>(std::clamp(mix, 0, 256));
    const auto channel = [&](Colour mask) {
        const std::uint64_t sum =
            std::uint64_t{from & mask} * (256 - part) + std::uint64_t{to & mask} * part;
        return static_cast<Colour>(sum >> 8) & mask;
    };
    return channel(0xff0000) | channel(0x00ff00) | channel(0x0000ff);
}

void plot(Canvas& canvas, std::int32_t x, std::int32_t y, Colour colour) {
    if (inside(x, y))
        at(canvas, x, y) = colour;
}

void fillRect(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t width,
              std::int32_t height, Colour colour) {
    shadeRect(canvas, x, y, width, height, colour, 256);
}

void shadeRect(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t width,
               std::int32_t height, Colour colour, std::int32_t mix) {
    const std::int32_t right = std::min(x + width, screenWidth);
    const std::int32_t bottom = std::min(y + height, screenHeight);
    for (std::int32_t row = std::max(y, 0); row < bottom; ++row)
        for (std::int32_t column = std::max(x, 0); column < right; ++column)
            at(canvas, column, row) =
                mix >= 256 ? colour : blend(at(canvas, column, row), colour, mix);
}

void fillDisc(Canvas& canvas, std::int32_t x, std::int32_t y, std::int32_t radius, Colour colour,
              std::int32_t mix) {
    for (std::int32_t row = -radius; row <= radius; ++row) {
        std::int32_t half = 0;
        while ((half + 1) * (half + 1) + row * row <= radius * radius + radius)
            ++half;
        shadeRect(canvas, x - half, y + row, 2 * half + 1, 1, colour, mix);
    }
}

void verticalGradient(Canvas& canvas, std::int32_t top, std::int32_t bottom, Colour from,
                      Colour to) {
    for (std::int32_t y = top; y < bottom; ++y)
        fillRect(canvas, 0, y, screenWidth, 1, blend(from, to, 256 * (y - top) / (bottom - top)));
}

void drawSprite(Canvas& canvas, std::int32_t x, std::int32_t y, Sprite sprite, bool mirrored) {
    for (std::size_t row = 0; row < sprite.size(); ++row) {
        const std::string_view line = sprite[row];
        for (std::size_t column = 0; column < line.size(); ++column) {
            const char code = line[mirrored ? line.size() - 1 - column : column];
            if (code != '.')
                plot(canvas, x + static_cast<std::int32_t>(column),
                     y + static_cast<std::int32_t>(row), spriteColour(code));
        }
    }
}

void drawText(Canvas& canvas, std::int32_t x, std::int32_t y, std::string_view text, Colour colour,
              std::int32_t scale) {
    for (const char character : text) {
        drawGlyph(canvas, x + scale, y + scale, glyphOf(character), shadowColour, scale);
        drawGlyph(canvas, x, y, glyphOf(character), colour, scale);
        x += 6 * scale;
    }
}

void drawCentredText(Canvas& canvas, std::int32_t y, std::string_view text, Colour colour,
                     std::int32_t scale) {
    drawText(canvas, (screenWidth - textWidth(text, scale)) / 2, y, text, colour, scale);
}

} // namespace demo
