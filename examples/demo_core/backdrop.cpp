#include "scene.h"

#include <algorithm>
#include <cstdlib>

#include "sprites.h"

namespace demo {
namespace {

struct Palette {
    Colour skyTop, skyBottom;
    Colour light; // sun or moon
    Colour cloud;
    Colour farHill, nearHill;
    Colour grass, soil;
    Colour leafDark, leaf, leafLight;
    bool stars;
};

constexpr std::array<Palette, 3> palettes{{
    {0x4aa3df, 0xd9f3ef, 0xfff2b0, 0xffffff, 0x9fd6b0, 0x79bd6f, 0x5aa845, 0x8a5a33, 0x2f7d3b,
     0x459b45, 0x74c15a, false},
    {0x6f7fc4, 0xffd9a0, 0xffc46b, 0xffeedd, 0xd9a860, 0xc07d3e, 0x9a8a3a, 0x6f4728, 0xa2441f,
     0xcf6a24, 0xeea33a, false},
    {0x101538, 0x3d4a86, 0xf3f0d8, 0x52609c, 0x2c3d6b, 0x24365a, 0x24503f, 0x33271f, 0x163a33,
     0x1e4d40, 0x2d6a50, true},
}};

constexpr std::int32_t canopyHeight = 20;
constexpr std::int32_t flowerCount = 15;

// Rises and falls smoothly between 0 and height once in every period.
constexpr std::int32_t wave(std::int32_t at, std::int32_t period, std::int32_t height) {
    const std::int32_t phase = (at % period + period) % period;
    const std::int32_t ramp =
        512 * (phase * 2 < period ? phase : period - phase) / period; // to 256
    return height * (ramp * ramp / 256) * (768 - 2 * ramp) / 65536;
}

// A scattering that looks random and is the same in every frame.
constexpr std::uint32_t scatter(std::uint32_t index) {
    index = (index + 1) * 0x9e3779b1U;
    index ^= index >> 15;
    index *= 0x85ebca77U;
    return index ^ index >> 13;
}

constexpr std::int32_t scattered(std::uint32_t index, std::int32_t limit) {
    return static_cast<std::int32_t>(scatter(index) % static_cast<std::uint32_t>(limit));
}

void drawStars(Canvas& canvas, std::uint32_t frame) {
    for (std::uint32_t i = 0; i < 40; ++i) {
        const bool dim = (frame / 16 + i) % 5 == 0;
        plot(canvas, scattered(2 * i, screenWidth), 20 + scattered(2 * i + 1, 80),
             dim ? 0x7f88bb : 0xffffff);
    }
}

void drawLight(Canvas& canvas, const Palette& palette) {
    for (std::int32_t ring = 0; ring < 4; ++ring)
        fillDisc(canvas, 196, 48, 34 - 5 * ring, palette.light, 24);
    fillDisc(canvas, 196, 48, 13, palette.light);
    if (palette.stars)
        fillDisc(canvas, 202, 44, 11, blend(palette.skyTop, palette.skyBottom, 80));
}

void drawCloud(Canvas& canvas, std::int32_t x, std::int32_t y, Colour colour) {
    constexpr std::array<std::array<std::int32_t, 3>, 4> puffs{
        {{0, 2, 5}, {8, -1, 8}, {18, 0, 7}, {26, 3, 4}}};
    for (const auto& [dx, dy, radius] : puffs)
        fillDisc(canvas, x + dx, y + dy, radius, colour, 210);
}

void drawClouds(Canvas& canvas, std::uint32_t frame, Colour colour) {
    for (std::uint32_t i = 0; i < 3; ++i) {
        const std::uint32_t drift = frame / (5 + 3 * i) + 110 * i;
        drawCloud(canvas, static_cast<std::int32_t>(drift % 310) - 40,
                  38 + 16 * static_cast<std::int32_t>(i), colour);
    }
}

void drawHills(Canvas& canvas, const Palette& palette) {
    for (std::int32_t x = 0; x < screenWidth; ++x) {
        const std::int32_t far = 116 - wave(x + 30, 150, 26) - wave(x, 61, 5);
        const std::int32_t near = 126 - wave(x + 90, 110, 16);
        fillRect(canvas, x, far, 1, groundY - far, palette.farHill);
        fillRect(canvas, x, near, 1, groundY - near, palette.nearHill);
    }
}

void drawGround(Canvas& canvas, const Palette& palette) {
    verticalGradient(canvas, groundY - 2, screenHeight, palette.grass, palette.soil);
    const Colour blade = blend(palette.grass, palette.leafLight, 128);
    for (std::uint32_t i = 0; i < 60; ++i)
        fillRect(canvas, scattered(200 + i, screenWidth), groundY - 4 + scattered(300 + i, 12), 1,
                 3, blade);
}

void drawCanopy(Canvas& canvas, const Palette& palette, std::uint32_t frame) {
    const std::array<Colour, 3> tones{palette.leafDark, palette.leaf, palette.leafLight};
    for (std::uint32_t layer = 0; layer < 3; ++layer) {
        const std::int32_t sway =
            wave(static_cast<std::int32_t>((frame / 8 + 20 * layer) % 240), 120, 2);
        for (std::int32_t i = -1; i < 18; ++i) {
            const std::uint32_t seed = 400 + 40 * layer + static_cast<std::uint32_t>(i + 1);
            fillDisc(canvas, i * 15 + scattered(seed, 9) + sway,
                     canopyHeight - 14 - 6 * static_cast<std::int32_t>(layer) +
                         scattered(seed + 9, 6),
                     11 - 2 * static_cast<std::int32_t>(layer), tones[layer]);
        }
    }
}

// The garden grows with what is caught.
void drawFlowers(Canvas& canvas, const Game& game) {
    for (std::int32_t i = 0; i < flowerCount; ++i) {
        const std::int32_t growth = (game.caught - i * 7 % flowerCount) / 5;
        if (game.caught > 0 && growth >= 0)
            drawSprite(canvas, 6 + i * 16 + scattered(500 + static_cast<std::uint32_t>(i), 6),
                       groundY + 3, flower(growth));
    }
}

} // namespace

void drawBackdrop(Canvas& canvas, const Game& game, Season season) {
    const Palette& palette = palettes[static_cast<std::size_t>(season)];
    verticalGradient(canvas, 0, groundY, palette.skyTop, palette.skyBottom);
    if (palette.stars)
        drawStars(canvas, game.frame);
    drawLight(canvas, palette);
    drawClouds(canvas, game.frame, palette.cloud);
    drawHills(canvas, palette);
    drawGround(canvas, palette);
    drawFlowers(canvas, game);
    drawCanopy(canvas, palette, game.frame);
}

} // namespace demo
