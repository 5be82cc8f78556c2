#include "sound.h"

#include <algorithm>

#include "game.h"

namespace demo {
namespace {

enum class Wave { triangle, square, pulse };

struct Note {
    std::uint8_t pitch; // MIDI number, 0 a rest
    std::uint8_t frames;
};

struct Score {
    std::span<const Note> notes;
    Wave wave;
    std::int32_t volume; // of 32767
    bool loops;
};

constexpr Note tuneNotes[] = {
    {72, 12}, {76, 12}, {79, 12}, {76, 12}, {77, 12}, {76, 12}, {74, 24},
    {71, 12}, {74, 12}, {77, 12}, {74, 12}, {76, 24}, {72, 12}, {0, 12},
    {69, 12}, {72, 12}, {77, 12}, {76, 12}, {74, 12}, {72, 12}, {71, 24},
    {67, 12}, {71, 12}, {74, 12}, {77, 12}, {76, 12}, {74, 12}, {72, 24},
};
constexpr Note bassNotes[] = {
    {48, 24}, {55, 24}, {52, 24}, {55, 24}, {43, 24}, {50, 24}, {47, 24}, {50, 24},
    {53, 24}, {57, 24}, {48, 24}, {55, 24}, {43, 24}, {47, 24}, {48, 24}, {43, 24},
};
constexpr Note startNotes[] = {{72, 5}, {76, 5}, {79, 5}, {84, 14}};
constexpr Note pauseNotes[] = {{79, 4}, {72, 8}};
constexpr Note jumpNotes[] = {{67, 2}, {71, 2}, {74, 3}, {79, 4}};
constexpr Note dashNotes[] = {{50, 2}, {57, 2}, {62, 2}, {69, 2}};
constexpr Note caughtNotes[] = {{84, 3}, {91, 7}};
constexpr Note goldNotes[] = {{84, 3}, {88, 3}, {91, 3}, {96, 3}, {100, 12}};
constexpr Note healedNotes[] = {{76, 5}, {79, 5}, {83, 12}};
constexpr Note hurtNotes[] = {{52, 4}, {46, 4}, {40, 12}};
constexpr Note levelUpNotes[] = {{72, 4}, {79, 4}, {76, 4}, {84, 12}};
constexpr Note gameOverNotes[] = {{67, 12}, {64, 12}, {60, 12}, {55, 12}, {48, 40}};

constexpr std::array<Score, static_cast<std::size_t>(Jingle::count)> scores{{
    {{}, Wave::triangle, 0, false}, // none
    {tuneNotes, Wave::triangle, 5200, true},
    {bassNotes, Wave::triangle, 6500, true},
    {startNotes, Wave::square, 4500, false},
    {pauseNotes, Wave::square, 4000, false},
    {jumpNotes, Wave::pulse, 3600, false},
    {dashNotes, Wave::pulse, 3600, false},
    {caughtNotes, Wave::square, 4500, false},
    {goldNotes, Wave::square, 5000, false},
    {healedNotes, Wave::triangle, 8000, false},
    {hurtNotes, Wave::pulse, 6000, false},
    {levelUpNotes, Wave::square, 4500, false},
    {gameOverNotes, Wave::square, 5000, false},
}};

struct EventJingle {
    std::uint32_t event;
    Jingle jingle;
};

// Of events in the same step the last in this list is heard best.
constexpr EventJingle eventJingles[] = {
    {eventStarted, Jingle::start},     {eventPaused, Jingle::pause},    {eventJumped, Jingle::jump},
    {eventDashed, Jingle::dash},       {eventCaught, Jingle::caught},   {eventGold, Jingle::gold},
    {eventHealed, Jingle::healed},     {eventLevelUp, Jingle::levelUp}, {eventHurt, Jingle::hurt},
    {eventGameOver, Jingle::gameOver},
};

constexpr std::size_t firstEffect = 2;

const Score& scoreOf(Jingle jingle) { return scores[static_cast<std::size_t>(jingle)]; }

// How far the phase of a voice, a whole turn in 32 bits, moves per sample at each MIDI pitch.
constexpr std::array<std::uint32_t, 128> phaseSteps = [] {
    std::array<std::uint32_t, 128> steps{};
    double hertz = 8.175798915643707;
    for (std::uint32_t& each : steps) {
        each = static_cast<std::uint32_t>(hertz * 4294967296.0 / sampleRate);
        hertz *= 1.0594630943592953;
    }
    return steps;
}();

constexpr std::int32_t samplesOf(const Note& note) {
    return note.frames * static_cast<std::int32_t>(samplesPerFrame);
}

// -32768 to 32767 around the turn of the phase.
constexpr std::int32_t waveform(Wave wave, std::uint32_t phase) {
    const auto turn = static_cast<std::int32_t>(phase >> 16); // 0 to 65535
    switch (wave) {
    case Wave::triangle:
        return turn < 32768 ? 2 * turn - 32768 : 98303 - 2 * turn;
    case Wave::square:
        return turn < 32768 ? 32767 : -32768;
    case Wave::pulse:
        return turn < 16384 ? 32767 : -32768;
    }
    return 0;
}

void start(Voice& voice, Jingle jingle) {
    voice = {};
    voice.jingle = jingle;
    if (jingle != Jingle::none)
        voice.left = samplesOf(scoreOf(jingle).notes[0]);
}

void nextNote(Voice& voice) {
    const Score& score = scoreOf(voice.jingle);
    if (static_cast<std::size_t>(++voice.note) == score.notes.size()) {
        if (!score.loops)
            return start(voice, Jingle::none);
        voice.note = 0;
    }
    voice.left = samplesOf(score.notes[static_cast<std::size_t>(voice.note)]);
}

std::int32_t nextSample(Voice& voice) {
    if (voice.jingle == Jingle::none)
        return 0;
    const Score& score = scoreOf(voice.jingle);
    const Note& note = score.notes[static_cast<std::size_t>(voice.note)];
    std::int32_t sample = 0;
    if (note.pitch != 0) {
        voice.phase += phaseSteps[note.pitch];
        const std::int32_t loudness = score.volume * (voice.left / 64) / (samplesOf(note) / 64);
        sample = (waveform(score.wave, voice.phase) / 64) * loudness / 512;
    }
    if (--voice.left <= 0)
        nextNote(voice);
    return sample;
}

bool isPlausible(const Voice& voice) {
    if (voice.jingle < Jingle::none || voice.jingle >= Jingle::count)
        return false;
    if (voice.jingle == Jingle::none)
        return true;
    const std::span<const Note> notes = scoreOf(voice.jingle).notes;
    const auto note = static_cast<std::size_t>(voice.note);
    return note < notes.size() && voice.left > 0 && voice.left <= samplesOf(notes[note]);
}

} // namespace

void setMusic(Synth& synth, Music music) {
    const bool plays = synth.voices[0].jingle != Jingle::none;
    if (plays == (music == Music::playing))
        return;
    start(synth.voices[0], plays ? Jingle::none : Jingle::tune);
    start(synth.voices[1], plays ? Jingle::none : Jingle::bass);
}

void soundEvents(Synth& synth, std::uint32_t events) {
    for (const EventJingle& each : eventJingles) {
        if ((events & each.event) == 0)
            continue;
        start(synth.voices[firstEffect + static_cast<std::size_t>(synth.nextEffect)], each.jingle);
        synth.nextEffect = 1 - synth.nextEffect;
    }
}

void render(Synth& synth, std::span<std::int16_t> stereo) {
    for (std::size_t i = 0; i + 1 < stereo.size(); i += 2) {
        std::int32_t sum = 0;
        for (Voice& voice : synth.voices)
            sum += nextSample(voice);
        stereo[i] = stereo[i + 1] = static_cast<std::int16_t>(std::clamp(sum, -32768, 32767));
    }
}

bool isPlausible(const Synth& synth) {
    return (synth.nextEffect == 0 || synth.nextEffect == 1) &&
           std::all_of(synth.voices.begin(), synth.voices.end(),
                       [](const Voice& voice) { return isPlausible(voice); });
}

} // namespace demo
