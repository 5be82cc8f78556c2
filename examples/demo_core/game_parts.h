#pragma once

#include "game.h"

// What the phases of the game are put together from.
namespace demo {

constexpr std::int32_t pixels(std::int32_t whole) { return whole * subpixel; }

inline constexpr std::int32_t dashLength = 12;
inline constexpr std::int32_t dashPause = 40;
inline constexpr std::int32_t safeAfterHurt = 75;
inline constexpr std::int32_t burstLength = 24;

void enter(Game& game, Phase phase);

void moveGardener(Game& game, std::uint32_t buttons, std::uint32_t pressed);

// Drops new items, moves all, and settles which are caught, lost or sting.
void moveItems(Game& game, const Rules& rules);
void ageBursts(Game& game);

} // namespace demo
