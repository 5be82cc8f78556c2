#include "save_state.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>

#include "game_parts.h"
#include "hash.h"

namespace demo {
namespace {

// No padding: equal sessions give equal files.
static_assert(std::has_unique_object_representations_v<SavedState>);

constexpr std::array<char, 8> magic{'O', 'R', 'C', 'H', 'A', 'R', 'D', 'S'};
constexpr std::uint32_t version = 1;

std::uint32_t checksumOf(const SavedState& state) {
    return hashOf(std::as_bytes(std::span(&state, 1)).subspan(offsetof(SavedState, game)));
}

// True if every value lies where the rules could have put it.
bool isPlausible(const Game& game) {
    const auto within = [](auto value, auto low, auto high) {
        return value >= low && value <= high;
    };
    const auto onScreen = [&](std::int32_t x, std::int32_t y, std::int32_t unit) {
        return within(x, -64 * unit, 320 * unit) && within(y, -64 * unit, 240 * unit);
    };
    const auto known = [&](Kind kind) { return kind >= Kind::none && kind < Kind::count; };

    return game.random != 0 && game.phase >= Phase::title && game.phase < Phase::count &&
           within(game.phaseFrames, 0, 1 << 20) && within(game.score, 0, 999999) &&
           within(game.caught, 0, 9999) && within(game.combo, 0, 999) &&
           within(game.hearts, 0, maxHearts) && onScreen(game.playerX, game.playerY, subpixel) &&
           within(game.fallVelocity, -pixels(16), pixels(32)) &&
           (game.facing == 1 || game.facing == -1) && within(game.walking, 0, 1 << 30) &&
           within(game.dashFrames, 0, dashLength) && within(game.dashRest, 0, dashPause) &&
           within(game.safeFrames, 0, safeAfterHurt) && within(game.untilNextItem, 0, 120) &&
           std::all_of(game.items.begin(), game.items.end(),
                       [&](const Item& item) {
                           return known(item.kind) && onScreen(item.x, item.y, subpixel) &&
                                  within(item.driftX, 0, 512) && within(item.age, 0, 1 << 20);
                       }) &&
           std::all_of(game.bursts.begin(), game.bursts.end(), [&](const Burst& each) {
               return known(each.kind) && onScreen(each.x, each.y, 1) &&
                      within(each.age, 0, burstLength);
           });
}

} // namespace

SavedState makeState(const Game& game, const Synth& synth, std::uint32_t gardenId) {
    SavedState state{magic, version, gardenId, 0, game, synth};
    state.checksum = checksumOf(state);
    return state;
}

bool isUsable(const SavedState& state, std::uint32_t gardenId) {
    return state.magic == magic && state.version == version && state.gardenId == gardenId &&
           state.checksum == checksumOf(state) && isPlausible(state.game) &&
           isPlausible(state.synth);
}

} // namespace demo
