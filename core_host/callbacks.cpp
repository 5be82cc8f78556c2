#include <cstdarg>
#include <cstdio>

#include <QDebug>

#include <velmora/libretro_host.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

#include "platform/core_call.h"
#include "platform/debug_output.h"
#include "support/no_throw.h"

namespace velmora {

LibretroHost* LibretroHost::active = nullptr;

void LibretroHost::setCallbacks() {
    active = this;
    platform::enterCore(core.retro_set_environment, environmentThunk);
    platform::enterCore(core.retro_set_video_refresh, videoRefreshThunk);
    platform::enterCore(core.retro_set_audio_sample, audioSampleThunk);
    platform::enterCore(core.retro_set_audio_sample_batch, audioBatchThunk);
    platform::enterCore(core.retro_set_input_poll, inputPollThunk);
    platform::enterCore(core.retro_set_input_state, inputStateThunk);
}

// What a core throws ends the frame, not the process.
void LibretroHost::runFrame() {
    const std::lock_guard lock(mutex);
    if (gameLoaded && core.retro_run)
        noThrow([this] { platform::enterCore(core.retro_run); });
}

void LibretroHost::reset() {
    const std::lock_guard lock(mutex);
    if (gameLoaded && core.retro_reset)
        noThrow([this] { platform::enterCore(core.retro_reset); });
}

bool LibretroHost::environmentThunk(unsigned int command, void* data) {
    return active && noThrowOr(false, [&] { return active->environment(command, data); });
}

void LibretroHost::videoRefreshThunk(const void* data, unsigned int frameWidth,
                                     unsigned int frameHeight, std::size_t pitch) {
    if (!active || !active->video)
        return;
    if (data == RETRO_HW_FRAME_BUFFER_VALID) {
        active->video->upload(data, frameWidth, frameHeight, 0);
        return;
    }
    active->video->setPixelFormat(active->pixelFormat);
    active->video->upload(data, frameWidth, frameHeight, pitch);
}

void LibretroHost::audioSampleThunk(std::int16_t left, std::int16_t right) {
    if (active && active->audio)
        active->audio->pushSample(left, right);
}

std::size_t LibretroHost::audioBatchThunk(const std::int16_t* data, std::size_t frames) {
    if (active && active->audio)
        active->audio->push(data, frames);
    return frames;
}

void LibretroHost::inputPollThunk() {
    if (active && active->input)
        active->input->poll();
}

std::int16_t LibretroHost::inputStateThunk(unsigned int port, unsigned int device,
                                           unsigned int index, unsigned int id) {
    if (!active || !active->input)
        return 0;
    return active->input->state(port, device, index, id);
}

void LibretroHost::logThunk(retro_log_level, const char* format, ...) {
    if (!format)
        return;
    char message[1024];
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    // A line that cannot be put together says more raw than not at all.
    if (length < 0)
        std::snprintf(message, sizeof message, "%s", format);

    platform::debugOutput("[libretro] ");
    platform::debugOutput(message);
    noThrow([&] { qInfo().noquote() << "[libretro]" << QString::fromUtf8(message); });
}

} // namespace velmora
