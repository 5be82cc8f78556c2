#include "game_parts.h"

#include <algorithm>
#include <cstdlib>

namespace demo {
namespace {

constexpr std::int32_t restAfterGameOver = 60;

void beginRound(Game& game) {
    game.score = game.caught = game.combo = 0;
    game.hearts = maxHearts;
    game.safeFrames = 0;
    game.untilNextItem = 20;
    game.items.fill({});
    game.bursts.fill({});
    game.events |= eventStarted;
    enter(game, Phase::playing);
}

// Behind the title the gardener plays alone.
std::uint32_t autopilot(const Game& game) {
    const Item* target = nullptr;
    for (const Item& item : game.items)
        if (item.kind != Kind::none && item.kind != Kind::wasp &&
            (target == nullptr || item.y > target->y))
            target = &item;
    if (target == nullptr || std::abs(target->x - game.playerX) < pixels(4))
        return 0;
    return target->x < game.playerX ? buttonLeft : buttonRight;
}

void play(Game& game, std::uint32_t buttons, std::uint32_t pressed, const Rules& rules) {
    moveGardener(game, buttons, pressed);
    moveItems(game, rules);
    ageBursts(game);
}

} // namespace

void enter(Game& game, Phase phase) {
    game.phase = phase;
    game.phaseFrames = 0;
}

Game newGame(std::uint32_t seed) {
    Game game{};
    game.random = seed != 0 ? seed : 1; // zero would stay zero
    game.hearts = maxHearts;
    game.facing = 1;
    game.playerX = pixels(screenWidth / 2);
    game.playerY = pixels(groundY);
    game.untilNextItem = 10;
    return game;
}

void step(Game& game, std::uint32_t buttons, const Rules& rules) {
    const std::uint32_t pressed = buttons & ~game.heldBefore;
    const bool go = (pressed & (buttonStart | buttonJump)) != 0;
    game.heldBefore = buttons;
    game.events = 0;
    ++game.frame;
    game.phaseFrames = std::min(game.phaseFrames + 1, 1 << 20);

    switch (game.phase) {
    case Phase::title:
        if (go)
            beginRound(game);
        else
            play(game, autopilot(game), 0, rules);
        break;
    case Phase::playing:
        if ((pressed & buttonStart) != 0) {
            game.events |= eventPaused;
            enter(game, Phase::paused);
        } else {
            play(game, buttons, pressed, rules);
        }
        break;
    case Phase::paused:
        if ((pressed & buttonStart) != 0) {
            game.events |= eventPaused;
            enter(game, Phase::playing);
        }
        break;
    case Phase::over:
        ageBursts(game);
        if (go && game.phaseFrames > restAfterGameOver)
            beginRound(game);
        break;
    case Phase::count:
        break;
    }
}

} // namespace demo
