#include "scene.h"

#include <cstdio>

#include "sprites.h"

namespace demo {
namespace {

constexpr Colour white = 0xffffff;
constexpr Colour cream = 0xfff3c4;
constexpr Colour gold = 0xffd447;
constexpr Colour rose = 0xff7d6e;

// A line of text made from numbers.
template <typename... Values>
struct Line {
    explicit Line(const char* format, Values... values) {
        std::snprintf(text, sizeof text, format, values...);
    }
    operator std::string_view() const { return text; }

    char text[48];
};

void drawItems(Canvas& canvas, const Game& game) {
    for (const Item& item : game.items)
        drawSprite(canvas, item.x / subpixel - 6, item.y / subpixel - 6,
                   itemSprite(item.kind, game.frame / 4 % 2 == 0), item.kind == Kind::wasp);
}

Legs legsOf(const Game& game) {
    if (game.playerY < groundY * subpixel)
        return Legs::jumping;
    if (game.walking == 0)
        return Legs::standing;
    constexpr std::array<Legs, 4> stride{Legs::stepLeft, Legs::standing, Legs::stepRight,
                                         Legs::standing};
    return stride[static_cast<std::size_t>(game.walking / 5 % 4)];
}

void drawGardener(Canvas& canvas, const Game& game) {
    if (game.safeFrames / 4 % 2 == 1)
        return; // blinks after a sting
    const std::int32_t x = game.playerX / subpixel - 9;
    const std::int32_t y = game.playerY / subpixel - playerHeight;
    const bool mirrored = game.facing < 0;
    shadeRect(canvas, x + 3, groundY - 1, 12, 2, 0x000000, 90);
    if (game.dashFrames > 0)
        for (std::int32_t i = 1; i <= 3; ++i)
            shadeRect(canvas, x + 5 - game.facing * 7 * i, y + 8, 8, 16, white, 90 - 22 * i);
    const Sprite upper = gardenerBody();
    drawSprite(canvas, x, y, upper, mirrored);
    drawSprite(canvas, x, y + static_cast<std::int32_t>(upper.size()), gardenerLegs(legsOf(game)),
               mirrored);
}

void drawBurst(Canvas& canvas, const Burst& burst) {
    constexpr std::array<Colour, static_cast<std::size_t>(Kind::count)> colours{
        0, 0xff6b5e, 0xd9e86a, 0xffe45c, 0xff9db0, 0x2b2433};
    constexpr std::array<std::array<std::int32_t, 2>, 8> rays{
        {{4, 0}, {3, 3}, {0, 4}, {-3, 3}, {-4, 0}, {-3, -3}, {0, -4}, {3, -3}}};
    for (const auto& [dx, dy] : rays) {
        const std::int32_t reach = burst.age * 12 / (burst.age + 8);
        const std::int32_t size = burst.age < 14 ? 2 : 1;
        fillRect(canvas, burst.x + dx * reach / 4, burst.y + dy * reach / 4, size, size,
                 colours[static_cast<std::size_t>(burst.kind)]);
    }
}

void drawStatus(Canvas& canvas, const Game& game, const SceneText& text) {
    drawText(canvas, 4, 3, Line("%06d", game.score), white);
    drawText(canvas, 90, 3, Line("BEST %06d", text.best), cream);
    for (std::int32_t i = 0; i < maxHearts; ++i)
        drawSprite(canvas, screenWidth - 9 * (maxHearts - i) - 1, 4, smallHeart(i < game.hearts));
    if (multiplierOf(game) > 1)
        drawText(canvas, 44, 3, Line("x%d", multiplierOf(game)), gold);
    drawText(canvas, 4, 150, Line("LEVEL %d", levelOf(game) + 1), cream);
    if (game.caught > 0 && game.caught % 8 == 0)
        drawCentredText(canvas, 60, "LEVEL UP!", gold);
}

bool blinking(const Game& game) { return game.phaseFrames % 48 < 32; }

void drawTitle(Canvas& canvas, const Game& game, const SceneText& text) {
    shadeRect(canvas, 14, 32, screenWidth - 28, 68, 0x10203a, 110);
    drawCentredText(canvas, 40, "ORCHARD DAY", gold, 3);
    drawCentredText(canvas, 67, text.garden, cream);
    if (text.best > 0)
        drawCentredText(canvas, 4, Line("BEST %06d", text.best), white);
    if (blinking(game))
        drawCentredText(canvas, 85, "PRESS START", white);
    drawCentredText(canvas, 150, "A JUMP   B RUN   L R DASH", cream);
}

void drawPanel(Canvas& canvas, std::string_view heading, Colour colour) {
    shadeRect(canvas, 0, 46, screenWidth, 60, 0x10203a, 150);
    drawCentredText(canvas, 53, heading, colour, 3);
}

void drawGameOver(Canvas& canvas, const Game& game, const SceneText& text) {
    drawPanel(canvas, "GAME OVER", rose);
    const bool record = game.score > 0 && game.score >= text.best;
    drawCentredText(canvas, 80, Line("SCORE %d", game.score), white);
    if (record && blinking(game))
        drawCentredText(canvas, 92, "*  NEW BEST SCORE  *", gold);
    else if (!record)
        drawCentredText(canvas, 92, Line("BEST %d", text.best), cream);
}

} // namespace

void drawScene(Canvas& canvas, const Game& game, Season season, const SceneText& text) {
    drawBackdrop(canvas, game, season);
    drawItems(canvas, game);
    drawGardener(canvas, game);
    for (const Burst& burst : game.bursts)
        if (burst.kind != Kind::none)
            drawBurst(canvas, burst);

    if (game.phase == Phase::title)
        return drawTitle(canvas, game, text);
    drawStatus(canvas, game, text);
    if (game.phase == Phase::paused)
        drawPanel(canvas, "PAUSED", white);
    if (game.phase == Phase::over)
        drawGameOver(canvas, game, text);
}

} // namespace demo
