// A core that does nothing but call back as often as its game file says: a text of `key=count`
// words with the keys `video`, `audio`, `poll`, `state` (calls per frame) and `bytes` (size of a
// state).
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <velmora/libretro.h>

namespace {

constexpr unsigned frameWidth = 256;
constexpr unsigned frameHeight = 224;

struct Workload {
    long video = 0;
    long audio = 0;
    long poll = 0;
    long state = 0;
    std::size_t bytes = 0;
};

Workload workload;
std::vector<char> machine;
std::vector<std::uint32_t> pixels(frameWidth* frameHeight, 0x123456U);
std::vector<std::int16_t> samples(2 * 735);
retro_video_refresh_t showFrame;
retro_audio_sample_batch_t playBatch;
retro_input_poll_t pollInput;
retro_input_state_t readInput;

long count(const std::string& text, const char* key) {
    const std::size_t place = text.find(std::string(key) + "=");
    return place == std::string::npos ? 0 : std::atol(text.c_str() + place + std::strlen(key) + 1);
}

} // namespace

void retro_set_environment(retro_environment_t environment) {
    retro_pixel_format format = RETRO_PIXEL_FORMAT_XRGB8888;
    environment(RETRO_ENVIRONMENT_SET_PIXEL_FORMAT, &format);
}
void retro_set_video_refresh(retro_video_refresh_t callback) { showFrame = callback; }
void retro_set_audio_sample(retro_audio_sample_t) {}
void retro_set_audio_sample_batch(retro_audio_sample_batch_t callback) { playBatch = callback; }
void retro_set_input_poll(retro_input_poll_t callback) { pollInput = callback; }
void retro_set_input_state(retro_input_state_t callback) { readInput = callback; }
void retro_init() {}
void retro_deinit() {}
unsigned retro_api_version() { return RETRO_API_VERSION; }
void retro_get_system_info(retro_system_info* info) { info->library_name = "bench"; }
void retro_get_system_av_info(retro_system_av_info* info) {
    info->geometry.base_width = frameWidth;
    info->geometry.base_height = frameHeight;
    info->timing.fps = 60.0;
    info->timing.sample_rate = 44100.0;
}
void retro_set_controller_port_device(unsigned, unsigned) {}
void retro_reset() {}

void retro_run() {
    for (long i = 0; i < workload.poll; ++i)
        pollInput();
    for (long i = 0; i < workload.state; ++i)
        readInput(0, RETRO_DEVICE_JOYPAD, 0, static_cast<unsigned>(i) & 15U);
    for (long i = 0; i < workload.audio; ++i)
        playBatch(samples.data(), samples.size() / 2);
    for (long i = 0; i < workload.video; ++i)
        showFrame(pixels.data(), frameWidth, frameHeight, frameWidth * 4);
}

bool retro_load_game(const retro_game_info* game) {
    const std::string text(static_cast<const char*>(game->data), game->size);
    workload = {count(text, "video"), count(text, "audio"), count(text, "poll"),
                count(text, "state"), static_cast<std::size_t>(count(text, "bytes"))};
    machine.assign(workload.bytes, 'm');
    return true;
}
void retro_unload_game() {}
void* retro_get_memory_data(unsigned) { return nullptr; }
size_t retro_get_memory_size(unsigned) { return 0; }
size_t retro_serialize_size() { return machine.size(); }
bool retro_serialize(void* data, size_t size) {
    std::memcpy(data, machine.data(), size);
    return true;
}
bool retro_unserialize(const void* data, size_t size) {
    if (size != machine.size())
        return false;
    std::memcpy(machine.data(), data, size);
    return true;
}
