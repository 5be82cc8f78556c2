#include "bare_core.h"

#include <SDL3/SDL_loadso.h>

#include <stdexcept>

namespace velmora::bench {
namespace {

// Some cores do not start without a directory.
bool environment(unsigned command, void* data) {
    if (command == RETRO_ENVIRONMENT_GET_SYSTEM_DIRECTORY ||
        command == RETRO_ENVIRONMENT_GET_SAVE_DIRECTORY) {
        *static_cast<const char**>(data) = "/tmp";
        return true;
    }
    if (command == RETRO_ENVIRONMENT_SET_PIXEL_FORMAT)
        return true;
    if (command == RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE) {
        *static_cast<bool*>(data) = false;
        return true;
    }
    return false;
}
void video(const void*, unsigned, unsigned, std::size_t) {}
void sample(std::int16_t, std::int16_t) {}
std::size_t batch(const std::int16_t*, std::size_t frames) { return frames; }
void poll() {}
std::int16_t state(unsigned, unsigned, unsigned, unsigned) { return 0; }

} // namespace

template <class Function>
Function BareCore::bind(Function, const char* name) const {
    return reinterpret_cast<Function>(SDL_LoadFunction(module, name));
}

#define VELMORA_BIND(name) bind(static_cast<decltype(&::name)>(nullptr), #name)

BareCore::BareCore(const std::filesystem::path& path, const std::filesystem::path& scratch,
                   const std::filesystem::path& game) {
    const std::filesystem::path copy = scratch / ("bare_" + path.filename().string());
    std::filesystem::copy_file(path, copy);
    module = SDL_LoadObject(copy.string().c_str());
    if (!module || !start(game))
        throw std::runtime_error("no bare core from " + path.string());
}

bool BareCore::start(const std::filesystem::path& game) {
    VELMORA_BIND(retro_set_environment)(environment);
    VELMORA_BIND(retro_set_video_refresh)(video);
    VELMORA_BIND(retro_set_audio_sample)(sample);
    VELMORA_BIND(retro_set_audio_sample_batch)(batch);
    VELMORA_BIND(retro_set_input_poll)(poll);
    VELMORA_BIND(retro_set_input_state)(state);
    VELMORA_BIND(retro_init)();
    entryRun = VELMORA_BIND(retro_run);
    entryStateSize = VELMORA_BIND(retro_serialize_size);
    entrySerialize = VELMORA_BIND(retro_serialize);
    entryUnserialize = VELMORA_BIND(retro_unserialize);

    bytes = test::readFile(game);
    const std::string path = game.string();
    const retro_game_info info{path.c_str(), bytes.data(), bytes.size(), nullptr};
    return VELMORA_BIND(retro_load_game)(&info);
}

BareCore::~BareCore() {
    VELMORA_BIND(retro_unload_game)();
    VELMORA_BIND(retro_deinit)();
    SDL_UnloadObject(module);
}

void start(LibretroHost& host, const std::filesystem::path& core,
           const std::filesystem::path& game) {
    if (!host.loadCore(core) || !host.loadGame(game))
        throw std::runtime_error(host.lastError);
}

std::filesystem::path workloadFile(const test::ScratchDirectory& directory,
                                   const std::string& text) {
    const std::filesystem::path path = directory / "workload.bench";
    test::writeFile(path, text);
    return path;
}

} // namespace velmora::bench
