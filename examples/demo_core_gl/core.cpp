#include <array>
#include <cstring>
#include <new>

#include <velmora/libretro.h>

#include "frontend_log.h"
#include "gl_scene.h"
#include "scene_file.h"

// A core that draws with the frontend's OpenGL context. Its picture tells which way up it is and
// whether the framebuffer has depth and stencil.
namespace {

using namespace demo;

constexpr double framesPerSecond = 60;
constexpr double sampleRate = 44100;
constexpr float stillAngle = 0.6F;
constexpr float anglePerFrame = 0.02F;

retro_environment_t environment;
retro_video_refresh_t videoRefresh;
retro_audio_sample_batch_t audioBatch;
retro_input_poll_t inputPoll;
retro_input_state_t inputState;

SceneSettings settings;
retro_hw_render_callback hardware;
GlScene scene;
bool canDraw = false;

struct Progress {
    std::array<char, 8> magic{'G', 'L', 'S', 'H', 'E', 'E', 'T', '1'};
    std::uint32_t frame = 0;
    std::uint32_t turnedFrames = 0;
    std::uint32_t turning = 1;
    std::uint32_t buttonHeld = 0;
};
Progress progress;

retro_game_geometry geometryOf(const SceneSettings& from) {
    return {from.width, from.height, from.width, from.height, 0};
}

void contextReset() {
    try {
        canDraw = createScene(scene, hardware.get_proc_address,
                              hardware.context_type == RETRO_HW_CONTEXT_OPENGL_CORE);
        if (canDraw)
            fitScene(scene, settings.width, settings.height);
    } catch (const std::bad_alloc&) {
        canDraw = false;
    }
    logLine(RETRO_LOG_INFO, "context reset");
}

void contextDestroy() {
    destroyScene(scene);
    canDraw = false;
    logLine(RETRO_LOG_INFO, "context destroyed");
}

bool requestHardware() {
    hardware = {};
    hardware.context_type = settings.context;
    hardware.version_major = settings.versionMajor;
    hardware.version_minor = settings.versionMinor;
    hardware.depth = settings.depth;
    hardware.stencil = settings.stencil;
    hardware.bottom_left_origin = settings.bottomLeftOrigin;
    hardware.debug_context = settings.debugContext;
    hardware.context_reset = contextReset;
    hardware.context_destroy = contextDestroy;
    return environment(RETRO_ENVIRONMENT_SET_HW_RENDER, &hardware);
}

void resizeWhenDue() {
    if (settings.resizedWidth == 0 || progress.frame != settings.resizeAt)
        return;
    settings.width = settings.resizedWidth;
    settings.height = settings.resizedHeight;
    retro_game_geometry geometry = geometryOf(settings);
    environment(RETRO_ENVIRONMENT_SET_GEOMETRY, &geometry);
    if (canDraw)
        fitScene(scene, settings.width, settings.height);
}

// A stops the turning and starts it again.
void turn() {
    inputPoll();
    const bool held = inputState(0, RETRO_DEVICE_JOYPAD, 0, RETRO_DEVICE_ID_JOYPAD_A) != 0;
    if (held && progress.buttonHeld == 0)
        progress.turning = 1 - progress.turning;
    progress.buttonHeld = held ? 1 : 0;
    ++progress.frame;
    progress.turnedFrames += progress.turning;
}

float currentAngle() {
    if (settings.still)
        return stillAngle;
    return stillAngle + anglePerFrame * static_cast<float>(progress.turnedFrames % 100000);
}

void sendSilence() {
    constexpr std::size_t frames = static_cast<std::size_t>(sampleRate / framesPerSecond);
    static constexpr std::array<std::int16_t, 2 * frames> silence{};
    audioBatch(silence.data(), frames);
}

} // namespace

void retro_set_environment(retro_environment_t callback) { environment = callback; }
void retro_set_video_refresh(retro_video_refresh_t callback) { videoRefresh = callback; }
void retro_set_audio_sample(retro_audio_sample_t) {}
void retro_set_audio_sample_batch(retro_audio_sample_batch_t callback) { audioBatch = callback; }
void retro_set_input_poll(retro_input_poll_t callback) { inputPoll = callback; }
void retro_set_input_state(retro_input_state_t callback) { inputState = callback; }

unsigned retro_api_version() { return RETRO_API_VERSION; }
void retro_init() { openLog(environment); }
void retro_deinit() {}

void retro_get_system_info(retro_system_info* info) {
    *info = {};
    info->library_name = "Turning Sheets";
    info->library_version = "1.0";
    info->valid_extensions = "demogl";
}

void retro_get_system_av_info(retro_system_av_info* info) {
    info->geometry = geometryOf(settings);
    info->timing = {framesPerSecond, sampleRate};
}

void retro_set_controller_port_device(unsigned, unsigned) {}

bool retro_load_game(const retro_game_info* info) {
    if (info == nullptr)
        return false;
    settings = readScene({static_cast<const std::byte*>(info->data), info->size});
    progress = {};
    // The frontend may make its framebuffer inside the request below, so it hears the size before.
    retro_game_geometry geometry = geometryOf(settings);
    environment(RETRO_ENVIRONMENT_SET_GEOMETRY, &geometry);
    if (requestHardware())
        return true;
    logLine(RETRO_LOG_ERROR, "the frontend offers no such OpenGL context");
    return false;
}

bool retro_load_game_special(unsigned, const retro_game_info*, std::size_t) { return false; }
void retro_unload_game() {}
void retro_reset() { progress = {}; }

void retro_run() {
    turn();
    try {
        resizeWhenDue();
    } catch (const std::bad_alloc&) {
        canDraw = false;
    }
    sendSilence();
    if (!canDraw)
        return;
    const auto framebuffer = static_cast<GLuint>(hardware.get_current_framebuffer());
    drawFrame(scene, framebuffer,
              {settings.width, settings.height, currentAngle(), settings.bottomLeftOrigin});
    videoRefresh(RETRO_HW_FRAME_BUFFER_VALID, settings.width, settings.height, 0);
}

std::size_t retro_serialize_size() { return sizeof(Progress); }

bool retro_serialize(void* data, std::size_t size) {
    if (data == nullptr || size < sizeof progress)
        return false;
    std::memcpy(data, &progress, sizeof progress);
    return true;
}

bool retro_unserialize(const void* data, std::size_t size) {
    Progress loaded;
    if (data == nullptr || size < sizeof loaded)
        return false;
    std::memcpy(&loaded, data, sizeof loaded);
    if (loaded.magic != Progress{}.magic || loaded.turning > 1 || loaded.buttonHeld > 1)
        return false;
    progress = loaded;
    return true;
}

void* retro_get_memory_data(unsigned) { return nullptr; }
std::size_t retro_get_memory_size(unsigned) { return 0; }
unsigned retro_get_region() { return RETRO_REGION_NTSC; }
void retro_cheat_reset() {}
void retro_cheat_set(unsigned, bool, const char*) {}
