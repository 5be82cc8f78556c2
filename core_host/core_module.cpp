#include <velmora/libretro_host.h>
#include <velmora/sdl_video.h>

#include "core_host/last_error.h"
#include "core_host/utf8_path.h"
#include "platform/core_call.h"
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
    if (platform::enterCore(core.retro_api_version) != RETRO_API_VERSION)
        return fail(lastError, {"Unsupported libretro API version"});
    setCallbacks();
    platform::enterCore(core.retro_init);
    coreLoaded = true;
    return true;
}

// Each symbol goes to the entry of its own name.
#define VELMORA_BIND(symbol) bind(module, #symbol, core.symbol)
#define VELMORA_REQUIRE(symbol)                                                                    \
    (VELMORA_BIND(symbol) || fail(lastError, {"Missing symbol: ", #symbol}))

bool LibretroHost::loadSymbols() {
    const bool complete =
        VELMORA_REQUIRE(retro_set_environment) && VELMORA_REQUIRE(retro_set_video_refresh) &&
        VELMORA_REQUIRE(retro_set_audio_sample) && VELMORA_REQUIRE(retro_set_audio_sample_batch) &&
        VELMORA_REQUIRE(retro_set_input_poll) && VELMORA_REQUIRE(retro_set_input_state) &&
        VELMORA_REQUIRE(retro_init) && VELMORA_REQUIRE(retro_deinit) &&
        VELMORA_REQUIRE(retro_api_version) && VELMORA_REQUIRE(retro_get_system_info) &&
        VELMORA_REQUIRE(retro_get_system_av_info) &&
        VELMORA_REQUIRE(retro_set_controller_port_device) && VELMORA_REQUIRE(retro_reset) &&
        VELMORA_REQUIRE(retro_run) && VELMORA_REQUIRE(retro_load_game) &&
        VELMORA_REQUIRE(retro_unload_game) && VELMORA_REQUIRE(retro_get_memory_data) &&
        VELMORA_REQUIRE(retro_get_memory_size);
    if (!complete)
        return false;
    VELMORA_BIND(retro_serialize);
    VELMORA_BIND(retro_unserialize);
    VELMORA_BIND(retro_serialize_size);
    return true;
}

void LibretroHost::unload() {
    if (gameLoaded && core.retro_unload_game) {
        persistSram();
        noThrow([this] { platform::enterCore(core.retro_unload_game); });
        gameLoaded = false;
    }
    if (coreLoaded && core.retro_deinit) {
        noThrow([this] { platform::enterCore(core.retro_deinit); });
        coreLoaded = false;
    }
    if (module) {
        if (video)
            video->forgetCoreOf(this);
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
