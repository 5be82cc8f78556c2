#include <cmath>

#include <velmora/libretro_host.h>

#include "core_host/last_error.h"
#include "core_host/size_limit.h"
#include "core_host/utf8_path.h"
#include "platform/core_call.h"
#include "platform/file.h"
#include "support/no_throw.h"

namespace velmora {

namespace {

// One frame a second is slower than any machine: such a rate, or one that is no number, is a core
// that has nothing to say yet.
bool isRate(double value) { return value > 1.0 && std::isfinite(value); }

bool readGame(const std::filesystem::path& path, std::vector<std::uint8_t>& bytes) {
    platform::File file(path, QIODevice::ReadOnly);
    const auto length = static_cast<std::uint64_t>(file.size());
    if (file.failure || length > sizeLimit)
        return false;
    bytes.resize(static_cast<std::size_t>(length));
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<qint64>(length));
    return true;
}

} // namespace

void LibretroHost::setDirectories(const std::filesystem::path& systemDirectory,
                                  const std::filesystem::path& saveDirectory) {
    noThrow([&] {
        std::string system = pathToUtf8(systemDirectory);
        saveDir = pathToUtf8(saveDirectory);
        systemDir = std::move(system);
    });
}

bool LibretroHost::loadGame(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex);
    if (!coreLoaded)
        return fail(lastError, {"No core loaded"});
    if (orFail(lastError, [&] { return startGame(path); }))
        return true;
    romData.clear();
    return false;
}

bool LibretroHost::startGame(const std::filesystem::path& path) {
    retro_system_info system = {};
    platform::enterCore(core.retro_get_system_info, &system);
    romPath = path;
    const std::string utf8Path = pathToUtf8(path);
    retro_game_info game = {utf8Path.c_str(), nullptr, 0, nullptr};
    romData.clear();
    if (!system.need_fullpath) {
        if (!noThrowOr(false, [&] { return readGame(path, romData); }))
            return fail(lastError, {"Could not read ROM: ", utf8Path});
        game.data = romData.data();
        game.size = romData.size();
    }
    if (!platform::coreAgrees(core.retro_load_game, &game))
        return fail(lastError, {"Core rejected ROM: ", utf8Path});

    try {
        adoptGame();
    } catch (...) {
        // The core holds the game by now, and is to give it back.
        gameLoaded = false;
        noThrow([this] { platform::enterCore(core.retro_unload_game); });
        throw;
    }
    return true;
}

void LibretroHost::adoptGame() {
    retro_system_av_info info = {};
    platform::enterCore(core.retro_get_system_av_info, &info);
    adoptTiming(info.timing);
    adoptGeometry(info.geometry);
    platform::enterCore(core.retro_set_controller_port_device, 0U, unsigned{RETRO_DEVICE_JOYPAD});
    gameLoaded = true;
    loadSram();
}

void LibretroHost::adoptTiming(const retro_system_timing& timing) {
    if (isRate(timing.fps))
        fps = timing.fps;
    if (isRate(timing.sample_rate))
        sampleRate = timing.sample_rate;
}

void LibretroHost::adoptGeometry(const retro_game_geometry& geometry) {
    if (geometry.base_width != 0)
        width = geometry.base_width;
    if (geometry.base_height != 0)
        height = geometry.base_height;
}

} // namespace velmora
