#include <cstring>

#include <velmora/libretro.h>

#include "frame_output.h"
#include "frontend_log.h"
#include "game.h"
#include "gamepad.h"
#include "garden_file.h"
#include "high_score.h"
#include "options.h"
#include "save_state.h"
#include "scene.h"
#include "sound.h"

// The libretro side of Orchard Day: what the frontend calls, and nothing of the game itself.
namespace {

using namespace demo;

retro_environment_t environment;
retro_video_refresh_t videoRefresh;
retro_audio_sample_batch_t audioBatch;
retro_input_poll_t inputPoll;
retro_input_state_t inputState;

Garden garden;
Options options;
Game game;
Synth synth;
Canvas canvas;
HighScoreMemory highScore;

void startGame() {
    game = newGame(garden.seed);
    synth = {};
}

void rereadOptions() {
    bool changed = false;
    if (!environment(RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE, &changed) || !changed)
        return;
    const retro_pixel_format format = options.pixelFormat; // agreed for the whole game
    options = readOptions(environment);
    options.pixelFormat = format;
}

void finishRound() {
    recordRound(highScore, game.score);
    logLine(RETRO_LOG_INFO, "round over: score %d, best %d", game.score, bestScore(highScore));
}

void sendSound() {
    std::array<std::int16_t, 2 * samplesPerFrame> stereo;
    setMusic(synth, game.phase == Phase::title || game.phase == Phase::playing ? Music::playing
                                                                               : Music::silent);
    soundEvents(synth, game.events);
    render(synth, stereo);
    audioBatch(stereo.data(), samplesPerFrame);
}

} // namespace

void retro_set_environment(retro_environment_t callback) {
    environment = callback;
    bool playsWithoutGame = true;
    environment(RETRO_ENVIRONMENT_SET_SUPPORT_NO_GAME, &playsWithoutGame);
    declareOptions(environment);
}

void retro_set_video_refresh(retro_video_refresh_t callback) { videoRefresh = callback; }
void retro_set_audio_sample(retro_audio_sample_t) {}
void retro_set_audio_sample_batch(retro_audio_sample_batch_t callback) { audioBatch = callback; }
void retro_set_input_poll(retro_input_poll_t callback) { inputPoll = callback; }
void retro_set_input_state(retro_input_state_t callback) { inputState = callback; }

unsigned retro_api_version() { return RETRO_API_VERSION; }

void retro_init() {
    openLog(environment);
    openGamepad(environment);
}

void retro_deinit() {}

void retro_get_system_info(retro_system_info* info) {
    *info = {};
    info->library_name = "Orchard Day";
    info->library_version = "1.0";
    info->valid_extensions = "demo";
}

void retro_get_system_av_info(retro_system_av_info* info) {
    info->geometry = {screenWidth, screenHeight, screenWidth, screenHeight,
                      static_cast<float>(screenWidth) / screenHeight};
    info->timing = {framesPerSecond, sampleRate};
}

void retro_set_controller_port_device(unsigned, unsigned) {}

bool retro_load_game(const retro_game_info* info) {
    std::span<const std::byte> file;
    if (info != nullptr && info->data != nullptr)
        file = {static_cast<const std::byte*>(info->data), info->size};
    garden = readGarden(file);
    options = readOptions(environment);
    options.pixelFormat = negotiateFormat(environment, options.pixelFormat);
    describeButtons(environment);
    highScore = {}; // the frontend fills it after this call
    startGame();
    logLine(RETRO_LOG_INFO, "garden \"%s\", seed %u", garden.titleText.data(), garden.seed);
    return true;
}

bool retro_load_game_special(unsigned, const retro_game_info*, std::size_t) { return false; }

void retro_unload_game() {}

void retro_reset() { startGame(); }

void retro_run() {
    rereadOptions();
    inputPoll();
    step(game, heldButtons(inputState), {options.fallSpeed});
    if ((game.events & eventGameOver) != 0)
        finishRound();
    drawScene(canvas, game, options.season, {garden.title(), bestScore(highScore)});
    sendFrame(videoRefresh, canvas, options.pixelFormat);
    sendSound();
}

std::size_t retro_serialize_size() { return sizeof(SavedState); }

bool retro_serialize(void* data, std::size_t size) {
    if (data == nullptr || size < sizeof(SavedState))
        return false;
    const SavedState state = makeState(game, synth, garden.id);
    std::memcpy(data, &state, sizeof state);
    return true;
}

bool retro_unserialize(const void* data, std::size_t size) {
    SavedState state{};
    if (data == nullptr || size < sizeof state)
        return false;
    std::memcpy(&state, data, sizeof state);
    if (!isUsable(state, garden.id)) {
        logLine(RETRO_LOG_WARN, "not a state of this garden");
        return false;
    }
    game = state.game;
    synth = state.synth;
    return true;
}

void* retro_get_memory_data(unsigned id) {
    return id == RETRO_MEMORY_SAVE_RAM ? &highScore : nullptr;
}

std::size_t retro_get_memory_size(unsigned id) {
    return id == RETRO_MEMORY_SAVE_RAM ? sizeof highScore : 0;
}

unsigned retro_get_region() { return RETRO_REGION_NTSC; }
void retro_cheat_reset() {}
void retro_cheat_set(unsigned, bool, const char*) {}
