#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <velmora/export.h>

struct SDL_AudioStream;

namespace velmora {

// Carries a core's sound to the default playback device through an SDL audio stream.
//
// Samples are signed 16-bit little-endian, two channels, interleaved left then right; a frame is
// one left and one right sample, 4 bytes. All members run on the thread that runs the core. No
// operation throws. The object is closed until `open` succeeds, and a closed object accepts every
// call.
class VELMORA_EXPORT SdlAudio {
public:
    SdlAudio() = default;
    // Destroys the stream; what is still queued is not played out.
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    // Opens the default playback device for frames at `sampleRate` Hz, 48000 for 0 or less, and
    // starts it. An open stream is closed first. The frontend has initialised SDL_INIT_AUDIO.
    // False: SDL could not open the device, SDL_GetError says why, and the object is closed.
    bool open(int sampleRate);

    // Destroys the stream with all that is queued. Gain and flags stay.
    void close();

    // Queues `frames` frames from `samples`, which is only read during the call. Never waits: when
    // more than eight batches of this size are already queued, the backlog is thrown away first, so
    // latency cannot grow. Does nothing on a closed object, for null or no samples, and while
    // `muted` or `suspended`. A batch too large for memory is dropped.
    void push(const std::int16_t* samples, std::size_t frames);

    // Queues one frame; a `push` of one, whose backlog is thus nine frames at most: a core that
    // hands over all its sound this way is nearly mute.
    void pushSample(std::int16_t left, std::int16_t right);

    // Sets the linear factor for the batches that follow, clamped to 0 (silence) to 1.5; it is 1 at
    // first. NaN is taken as silence. Within 0.001 of 1 samples pass untouched.
    void setGain(float gain);

private:
    SDL_AudioStream* stream = nullptr;
    float gain = 1.0F;

public:
    // While either is set, `push` drops what it gets; what is queued goes on playing. Written by
    // the frontend only.
    bool muted = false;
    bool suspended = false;

private:
    // Scaled samples on their way to the stream; keeps its storage between batches.
    std::vector<std::int16_t> scratch;
};

} // namespace velmora
