#include <velmora/sdl_audio.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>

#include "support/scratch_directory.h"

namespace velmora::test {
namespace {

using Samples = std::vector<std::int16_t>;

constexpr std::size_t chunkFrames = 8192;
constexpr std::size_t chunkBytes = chunkFrames * 4;

// `batches` batches of `frames` frames, the samples of each telling its number.
Samples numbered(int batches, std::size_t frames) {
    Samples all;
    for (int number = 1; number <= batches; ++number)
        all.insert(all.end(), frames * 2, static_cast<std::int16_t>(number));
    return all;
}

class SdlAudioTest : public testing::Test {
protected:
    void SetUp() override {
        SDL_SetHintWithPriority(SDL_HINT_AUDIO_DRIVER, "disk", SDL_HINT_OVERRIDE);
        SDL_SetHint(SDL_HINT_AUDIO_DISK_OUTPUT_FILE, sound.string().c_str());
        SDL_SetHint(SDL_HINT_AUDIO_DEVICE_SAMPLE_FRAMES, std::to_string(chunkFrames).c_str());
        SDL_SetHint(SDL_HINT_AUDIO_DISK_TIMESCALE, "3");
        ASSERT_TRUE(SDL_Init(SDL_INIT_AUDIO)) << SDL_GetError();
    }

    // Opens `audio`, with the file empty again, and lets the device take its first chunk. It then
    // sleeps: all that a test pushes falls into that time, and the second chunk is the queue that
    // the pushes left.
    void openAndSettle() {
        ASSERT_TRUE(audio.open(48000)) << SDL_GetError();
        waitFor(1);
    }

    void pushNumbered(int batches, std::size_t frames) {
        const Samples all = numbered(batches, frames);
        for (std::size_t at = 0; at < all.size(); at += frames * 2)
            audio.push(&all[at], frames);
    }

    // What was queued, without the silence after the last sound. Closes the device, which keeps its
    // file to itself on Windows.
    Samples heard() {
        waitFor(2);
        audio.close();
        Samples samples(chunkFrames * 2);
        std::memcpy(samples.data(), readFile(sound).data() + chunkBytes, chunkBytes);
        while (!samples.empty() && samples.back() == 0)
            samples.pop_back();
        return samples;
    }

    void waitFor(std::size_t chunks) const {
        const Uint64 deadline = SDL_GetTicks() + 30000;
        while (std::filesystem::file_size(sound) < chunks * chunkBytes) {
            ASSERT_LT(SDL_GetTicks(), deadline) << "the device plays nothing";
            SDL_Delay(10);
        }
    }

    const ScratchDirectory scratch;
    const std::filesystem::path sound = scratch / "sound";
    SdlAudio audio;
};

TEST_F(SdlAudioTest, ScalesTruncatesAndClamps) {
    const Samples loud{1000, -1000, 30000, -30000, 3, -3, 32767, -32768};
    const Samples louder{1500, -1500, 32767, -32768, 4, -4, 32767, -32768};
    const Samples silence(loud.size());
    const std::pair<float, Samples> cases[] = {
        {1.001F, loud},
        {1.002F, {1002, -1002, 30060, -30060, 3, -3, 32767, -32768}},
        {0.5F, {500, -500, 15000, -15000, 1, -1, 16383, -16384}},
        {1.5F, louder},
        {2.0F, louder},
        {-1.0F, silence},
        {std::nanf(""), silence},
        {0.999F, loud},
        {0.998F, {998, -998, 29940, -29940, 2, -2, 32701, -32702}},
    };
    openAndSettle();
    Samples expected;
    for (const auto& [gain, result] : cases) {
        audio.setGain(gain);
        audio.push(loud.data(), loud.size() / 2);
        expected.insert(expected.end(), result.begin(), result.end());
    }
    EXPECT_EQ(heard(), expected);
}

TEST_F(SdlAudioTest, ABacklogOfMoreThanEightBatchesIsThrownAway) {
    openAndSettle();
    pushNumbered(9, 735);
    EXPECT_EQ(heard(), numbered(9, 735)) << "exactly eight stay";

    openAndSettle();
    pushNumbered(10, 735);
    EXPECT_EQ(heard(), Samples(735 * 2, 10)) << "the tenth finds nine";

    openAndSettle();
    pushNumbered(9, 735);
    audio.pushSample(1, -1);
    audio.pushSample(2, -2);
    EXPECT_EQ(heard(), Samples({1, -1, 2, -2}));
}

TEST_F(SdlAudioTest, WhatIsDroppedLeavesTheQueueAlone) {
    constexpr std::size_t pastSdl = std::numeric_limits<int>::max() / 4 + std::size_t{1};
    const Samples one{55, 55};
    openAndSettle();
    pushNumbered(9, 100);
    audio.push(nullptr, 1);
    for (const std::size_t frames : {std::size_t{0}, pastSdl, ~std::size_t{0}, ~std::size_t{0} / 4})
        audio.push(one.data(), frames);
    audio.muted = true;
    audio.pushSample(55, 55);
    audio.muted = false;
    audio.suspended = true;
    audio.pushSample(55, 55);
    EXPECT_EQ(heard(), numbered(9, 100));
}

TEST_F(SdlAudioTest, OpensAtTheRateAskedFor) {
    SDL_SetHint(SDL_HINT_AUDIO_DISK_TIMESCALE, "0.01");
    for (const auto& [asked, result] : {std::pair(0, 48000), {-1, 48000}, {44100, 44100}}) {
        SDL_AudioSpec format{};
        ASSERT_TRUE(audio.open(asked));
        SDL_GetAudioDeviceFormat(SDL_AUDIO_DEVICE_DEFAULT_PLAYBACK, &format, nullptr);
        EXPECT_EQ(format.freq, result) << asked;
        audio.close();
    }
}

TEST_F(SdlAudioTest, AClosedObjectTakesEveryCallAndOpensAnew) {
    const std::filesystem::path nowhere = scratch / "no such directory" / "sound";
    SDL_SetHint(SDL_HINT_AUDIO_DISK_OUTPUT_FILE, nowhere.string().c_str());
    audio.close();
    EXPECT_FALSE(audio.open(48000));
    EXPECT_STRNE(SDL_GetError(), "");
    audio.setGain(0.5F);
    audio.pushSample(1, 1);
    SDL_SetHint(SDL_HINT_AUDIO_DISK_OUTPUT_FILE, sound.string().c_str());
    openAndSettle();
    pushNumbered(3, 100);
    openAndSettle();
    audio.pushSample(10, 20);
    EXPECT_EQ(heard(), Samples({5, 10}));
}

} // namespace
} // namespace velmora::test
