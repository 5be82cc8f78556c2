#include "game_parts.h"

#include <algorithm>
#include <cstdlib>

namespace demo {
namespace {

constexpr std::int32_t canopyY = 20;

struct KindRules {
    std::int32_t chance; // in 100
    std::int32_t points;
    bool missHurts;
};

constexpr std::array<KindRules, static_cast<std::size_t>(Kind::count)> kindRules{{
    {0, 0, false},   // none
    {52, 10, true},  // apple
    {25, 20, true},  // pear
    {4, 100, false}, // gold
    {4, 10, false},  // heart
    {15, 0, false},  // wasp
}};

const KindRules& rulesOf(Kind kind) { return kindRules[static_cast<std::size_t>(kind)]; }

std::int32_t randomBelow(Game& game, std::int32_t limit) {
    game.random ^= game.random << 13;
    game.random ^= game.random >> 17;
    game.random ^= game.random << 5;
    return static_cast<std::int32_t>((game.random >> 4) % static_cast<std::uint32_t>(limit));
}

Kind randomKind(Game& game) {
    std::int32_t roll = randomBelow(game, 100);
    for (std::size_t i = 1; i < kindRules.size(); ++i) {
        roll -= kindRules[i].chance;
        if (roll < 0)
            return static_cast<Kind>(i);
    }
    return Kind::apple;
}

void dropItem(Game& game) {
    const auto slot = std::find_if(game.items.begin(), game.items.end(),
                                   [](const Item& item) { return item.kind == Kind::none; });
    if (slot == game.items.end())
        return;
    slot->kind = randomKind(game);
    slot->x = pixels(16 + randomBelow(game, screenWidth - 32));
    slot->y = pixels(canopyY);
    slot->driftX = slot->kind == Kind::wasp ? 96 + randomBelow(game, 160) : 0;
    slot->age = 0;
}

void burst(Game& game, const Item& item) {
    const auto oldest = std::max_element(game.bursts.begin(), game.bursts.end(),
                                         [](const Burst& a, const Burst& b) {
                                             return (a.kind == Kind::none ? burstLength : a.age) <
                                                    (b.kind == Kind::none ? burstLength : b.age);
                                         });
    *oldest = {item.kind, item.x / subpixel, item.y / subpixel, 0};
}

void hurt(Game& game) {
    if (game.safeFrames > 0 || game.phase != Phase::playing)
        return;
    game.combo = 0;
    game.safeFrames = safeAfterHurt;
    game.events |= eventHurt;
    if (--game.hearts > 0)
        return;
    game.events |= eventGameOver;
    enter(game, Phase::over);
}

void collect(Game& game, const Item& item) {
    burst(game, item);
    if (game.phase != Phase::playing)
        return;
    const std::int32_t levelBefore = levelOf(game);
    game.score = std::min(999999, game.score + rulesOf(item.kind).points * multiplierOf(game));
    game.combo = std::min(game.combo + 1, 999);
    game.caught = std::min(game.caught + 1, 9999);
    game.events |= eventCaught;
    if (item.kind == Kind::gold)
        game.events |= eventGold;
    if (item.kind == Kind::heart) {
        game.hearts = std::min(game.hearts + 1, maxHearts);
        game.events |= eventHealed;
    }
    if (levelOf(game) != levelBefore)
        game.events |= eventLevelUp;
}

bool inBasket(const Game& game, const Item& item) {
    const std::int32_t rim = game.playerY - pixels(playerHeight);
    return std::abs(item.x - game.playerX) < pixels(basketHalfWidth + 3) &&
           item.y > rim - pixels(5) && item.y < rim + pixels(9);
}

bool stings(const Game& game, const Item& item) {
    return std::abs(item.x - game.playerX) < pixels(11) &&
           item.y > game.playerY - pixels(playerHeight + 3) && item.y < game.playerY;
}

void moveItem(Game& game, Item& item, const Rules& rules) {
    ++item.age;
    const std::int32_t speed = rules.fallSpeed + 20 * std::min(levelOf(game), 24);
    item.y += item.kind == Kind::wasp ? speed * 3 / 4 : speed;
    item.x += (item.age + 20) / 40 % 2 == 0 ? item.driftX : -item.driftX;
}

void settleItem(Game& game, Item& item) {
    if (item.kind == Kind::wasp) {
        if (stings(game, item)) {
            burst(game, item);
            hurt(game);
            item.kind = Kind::none;
        }
    } else if (inBasket(game, item)) {
        collect(game, item);
        item.kind = Kind::none;
        return;
    }
    if (item.kind == Kind::none || item.y < pixels(groundY - 3))
        return;
    burst(game, item);
    if (rulesOf(item.kind).missHurts)
        hurt(game);
    item.kind = Kind::none;
}

} // namespace

void moveItems(Game& game, const Rules& rules) {
    if (--game.untilNextItem <= 0) {
        dropItem(game);
        game.untilNextItem = std::max(24, 62 - 3 * levelOf(game)) + randomBelow(game, 12);
    }
    for (Item& item : game.items) {
        if (item.kind == Kind::none)
            continue;
        moveItem(game, item, rules);
        settleItem(game, item);
    }
}

void ageBursts(Game& game) {
    for (Burst& each : game.bursts)
        if (each.kind != Kind::none && ++each.age >= burstLength)
            each.kind = Kind::none;
}

} // namespace demo
