#include <velmora/libretro_host.h>

#include "core_host/last_error.h"
#include "core_host/utf8_path.h"
#include "platform/dynamic_library.h"
#include "support/no_throw.h"

namespace velmora {

namespace {

template <class EntryPoint>
bool bind(void* module, const char* name, EntryPoint& entry) {
    entry = reinterpret_cast<EntryPoint>(platform::findSymbol(module, name));
    return entry != nullptr;
}

} // namespace

LibretroHost::~LibretroHost() { unload(); }

bool LibretroHost::loadCore(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex);
    unload();
    if (orFail(lastError, [&] { return startCore(path); }))
        return true;
    // retro_init has not returned, so this calls nothing in the core and only closes the module.
    unload();
    return false;
}

bool LibretroHost::startCore(const std::filesystem::path& path) {
    module = platform::openLibrary(path);
    if (!module)
        return fail(lastError, {"Could not load core: ", pathToUtf8(path),
                                " (LoadLibrary/GetProcAddress failed)"});
    if (!loadSymbols())
        return false;
    if (core.retro_api_version() != RETRO_API_VERSION)
        return fail(lastError, {"Unsupported libretro API version"});
    setCallbacks();
    core.retro_init();
    coreLoaded = true;
    return true;
}

bool LibretroHost::loadSymbols() {
    const auto require = [this](const char* name, auto& entry) {
        return bind(module, name, entry) || fail(lastError, {"Missing symbol: ", name});
    };
    const bool complete =
        require("retro_set_environment", core.retro_set_environment) &&
        require("retro_set_video_refresh", core.retro_set_video_refresh) &&
        require("retro_set_audio_sample", core.retro_set_audio_sample) &&
        require("retro_set_audio_sample_batch", core.retro_set_audio_sample_batch) &&
        require("retro_set_input_poll", core.retro_set_input_poll) &&
        require("retro_set_input_state", core.retro_set_input_state) &&
        require("retro_init", core.retro_init) && require("retro_deinit", core.retro_deinit) &&
        require("retro_api_version", core.retro_api_version) &&
        require("retro_get_system_info", core.retro_get_system_info) &&
        require("retro_get_system_av_info", core.retro_get_system_av_info) &&
        require("retro_set_controller_port_device", core.retro_set_controller_port_device) &&
        require("retro_reset", core.retro_reset) && require("retro_run", core.retro_run) &&
        require("retro_load_game", core.retro_load_game) &&
        require("retro_unload_game", core.retro_unload_game) &&
        require("retro_get_memory_data", core.retro_get_memory_data) &&
        require("retro_get_memory_size", core.retro_get_memory_size);
    if (!complete)
        return false;

    bind(module, "retro_serialize", core.retro_serialize);
    bind(module, "retro_unserialize", core.retro_unserialize);
    bind(module, "retro_serialize_size", core.retro_serialize_size);
    return true;
}

void LibretroHost::unload() {
    if (gameLoaded && core.retro_unload_game) {
        persistSram();
        noThrow([this] { core.retro_unload_game(); });
        gameLoaded = false;
    }
    if (coreLoaded && core.retro_deinit) {
        noThrow([this] { core.retro_deinit(); });
        coreLoaded = false;
    }
    if (module) {
        platform::closeLibrary(module);
        module = nullptr;
    }
    romData.clear();
    variables.clear();
    shutdownRequested = false;
    if (active == this)
        active = nullptr;
    core = {};
}

} // namespace velmora
