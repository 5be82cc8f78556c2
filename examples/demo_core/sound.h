#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// A little synthesiser: jingles made of notes, played by four voices.
//
// Whole numbers only, so that the same game sounds the same to the last bit everywhere.
namespace demo {

inline constexpr std::int32_t sampleRate = 44100;
inline constexpr std::int32_t framesPerSecond = 60;
inline constexpr std::size_t samplesPerFrame = sampleRate / framesPerSecond;

enum class Jingle : std::int32_t {
    none,
    tune,
    bass,
    start,
    pause,
    jump,
    dash,
    caught,
    gold,
    healed,
    hurt,
    levelUp,
    gameOver,
    count
};

// All members are 32 bits wide: the synthesiser is part of a saved state.
struct Voice {
    Jingle jingle;
    std::int32_t note;
    std::int32_t left; // samples of the note still to play
    std::uint32_t phase;
};

struct Synth {
    std::array<Voice, 4> voices; // two for the music, two for effects
    std::int32_t nextEffect;
};

enum class Music { silent, playing };

void setMusic(Synth& synth, Music music);
// Starts the jingles of a set of game events.
void soundEvents(Synth& synth, std::uint32_t events);
// Fills interleaved stereo.
void render(Synth& synth, std::span<std::int16_t> stereo);

bool isPlausible(const Synth& synth);

} // namespace demo
