#pragma once

#include <array>
#include <cstdint>

// The rules of Orchard Day: a gardener catches falling fruit and keeps clear of wasps.
//
// Pure and deterministic: the same seed and the same buttons give the same game on every machine.
// Nothing here knows of libretro, pixels or samples.
namespace demo {

inline constexpr std::int32_t screenWidth = 240;
inline constexpr std::int32_t screenHeight = 160;
inline constexpr std::int32_t groundY = 140;  // where feet stand
inline constexpr std::int32_t subpixel = 256; // positions and speeds count in 1/256 of a pixel
inline constexpr std::int32_t playerHeight = 26;
inline constexpr std::int32_t basketHalfWidth = 10;
inline constexpr std::int32_t maxHearts = 5;

enum Button : std::uint32_t {
    buttonLeft = 1U << 0,
    buttonRight = 1U << 1,
    buttonDown = 1U << 2,
    buttonJump = 1U << 3,
    buttonRun = 1U << 4,
    buttonDashLeft = 1U << 5,
    buttonDashRight = 1U << 6,
    buttonStart = 1U << 7,
};

// What happened in one step, for sound and high score.
enum Event : std::uint32_t {
    eventStarted = 1U << 0,
    eventPaused = 1U << 1,
    eventJumped = 1U << 2,
    eventDashed = 1U << 3,
    eventCaught = 1U << 4,
    eventGold = 1U << 5,
    eventHealed = 1U << 6,
    eventHurt = 1U << 7,
    eventLevelUp = 1U << 8,
    eventGameOver = 1U << 9,
};

enum class Phase : std::int32_t { title, playing, paused, over, count };
enum class Kind : std::int32_t { none, apple, pear, gold, heart, wasp, count };

struct Item {
    Kind kind;
    std::int32_t x, y; // centre
    std::int32_t driftX;
    std::int32_t age;
};

// A short burst where something was caught or lost.
struct Burst {
    Kind kind;
    std::int32_t x, y; // whole pixels
    std::int32_t age;
};

struct Rules {
    std::int32_t fallSpeed; // of the first level
};

// The whole of a running game. Members are all 32 bits wide, so that the bytes of a saved state are
// the values and no padding.
struct Game {
    std::uint32_t random;
    std::uint32_t frame;
    std::uint32_t heldBefore;
    std::uint32_t events;
    Phase phase;
    std::int32_t phaseFrames;
    std::int32_t score;
    std::int32_t caught;
    std::int32_t combo;
    std::int32_t hearts;
    std::int32_t playerX, playerY; // between the feet
    std::int32_t fallVelocity;
    std::int32_t facing; // -1 left, 1 right
    std::int32_t walking;
    std::int32_t dashFrames;
    std::int32_t dashRest;
    std::int32_t safeFrames; // unhurt while above 0
    std::int32_t untilNextItem;
    std::array<Item, 12> items;
    std::array<Burst, 8> bursts;
};

Game newGame(std::uint32_t seed);

// Advances by one sixtieth of a second.
void step(Game& game, std::uint32_t buttons, const Rules& rules);

constexpr std::int32_t levelOf(const Game& game) { return game.caught / 8; }
constexpr std::int32_t multiplierOf(const Game& game) {
    return game.combo < 20 ? 1 + game.combo / 5 : 5;
}

} // namespace demo
