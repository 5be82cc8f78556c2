#pragma once

#include <array>
#include <cstdint>

#include "game.h"
#include "sound.h"

namespace demo {

// A running session as it lies in a state file.
struct SavedState {
    std::array<char, 8> magic;
    std::uint32_t version;
    std::uint32_t gardenId;
    std::uint32_t checksum; // of game and synth
    Game game;
    Synth synth;
};

SavedState makeState(const Game& game, const Synth& synth, std::uint32_t gardenId);

// False for a state of another core, version or garden, and for damaged bytes.
bool isUsable(const SavedState& state, std::uint32_t gardenId);

} // namespace demo
