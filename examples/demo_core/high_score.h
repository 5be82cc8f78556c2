#pragma once

#include <array>
#include <cstdint>

namespace demo {

// The battery memory of the core, as it lies in the frontend's save file.
struct HighScoreMemory {
    std::array<char, 8> magic;
    std::uint32_t best;
    std::uint32_t roundsPlayed;
    std::uint32_t checksum; // of the members above
    std::array<std::uint32_t, 11> unused;
};
static_assert(sizeof(HighScoreMemory) == 64);

// Memory that does not carry our mark, such as fresh or foreign or damaged bytes, counts as a best
// score of 0.
std::int32_t bestScore(const HighScoreMemory& memory);
void recordRound(HighScoreMemory& memory, std::int32_t score);

} // namespace demo
