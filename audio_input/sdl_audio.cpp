#include <velmora/sdl_audio.h>

#include <algorithm>
#include <limits>

#include <SDL3/SDL.h>

#include "support/no_throw.h"

namespace velmora {

namespace {

constexpr int fallbackRate = 48000;
constexpr int channels = 2;
constexpr int bytesPerFrame = 4;
constexpr int batchesInQueue = 8;
constexpr float maximumGain = 1.5F;

// SDL counts bytes in an int.
constexpr std::size_t mostFrames = std::numeric_limits<int>::max() / bytesPerFrame;

// The backlog, in bytes, up to which a batch of this size is queued behind it. Wraps at 32 bits, as
// SDL's own byte counts do.
std::int32_t queueLimit(std::size_t frames) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(frames) *
                                     (batchesInQueue * bytesPerFrame));
}

bool isUnity(float gain) { return gain >= 0.999F && gain <= 1.001F; }

std::int16_t scaled(std::int16_t sample, float gain) {
    const int value = static_cast<int>(static_cast<float>(sample) * gain);
    return static_cast<std::int16_t>(std::clamp<int>(
        value, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()));
}

} // namespace

SdlAudio::~SdlAudio() { close(); }

bool SdlAudio::open(int sampleRate) {
    close();
    const SDL_AudioSpec format{SDL_AUDIO_S16LE, channels,
                               sampleRate > 0 ? sampleRate : fallbackRate};
    stream =
        SDL_OpenAudioDeviceStream(SDL_AUDIO_DEVICE_DEFAULT_PLAYBACK, &format, nullptr, nullptr);
    if (!stream)
        return false;
    // SDL opens the device paused.
    SDL_ResumeAudioDevice(SDL_GetAudioStreamDevice(stream));
    return true;
}

void SdlAudio::close() {
    if (stream) {
        SDL_DestroyAudioStream(stream);
        stream = nullptr;
    }
}

void SdlAudio::setGain(float factor) {
    // NaN is not above 0 either.
    gain = factor > 0.0F ? std::min(factor, maximumGain) : 0.0F;
}

void SdlAudio::push(const std::int16_t* samples, std::size_t frames) {
    if (!stream || !samples || frames == 0 || frames > mostFrames || muted || suspended)
        return;
    if (SDL_GetAudioStreamQueued(stream) > queueLimit(frames))
        SDL_ClearAudioStream(stream);
    const int bytes = static_cast<int>(frames) * bytesPerFrame;
    if (isUnity(gain)) {
        SDL_PutAudioStreamData(stream, samples, bytes);
        return;
    }
    const std::size_t count = frames * channels;
    noThrow([&] {
        scratch.resize(count);
        std::transform(samples, samples + count, scratch.begin(),
                       [factor = gain](std::int16_t sample) { return scaled(sample, factor); });
        SDL_PutAudioStreamData(stream, scratch.data(), bytes);
    });
}

void SdlAudio::pushSample(std::int16_t left, std::int16_t right) {
    const std::int16_t frame[channels] = {left, right};
    push(frame, 1);
}

} // namespace velmora
