#include <algorithm>
#include <cstdint>
#include <fstream>

#include <velmora/libretro_host.h>

#include "core_host/utf8_path.h"
#include "support/no_throw.h"

namespace velmora {

namespace {

// The ending is added, not put in an extension's place: "Some Game.v2" is the whole stem.
std::filesystem::path batteryFile(const std::string& saveDir, const std::filesystem::path& game) {
    std::filesystem::path file = pathFromUtf8(saveDir) / game.stem();
    file += ".srm";
    return file;
}

std::streamsize streamSize(std::size_t size) {
    return static_cast<std::streamsize>(std::min<std::size_t>(size, PTRDIFF_MAX));
}

} // namespace

bool LibretroHost::loadSram() {
    return orElse(false, [this] {
        if (!core.retro_get_memory_data || !core.retro_get_memory_size || saveDir.empty())
            return false;
        const std::size_t size = core.retro_get_memory_size(RETRO_MEMORY_SAVE_RAM);
        void* const memory = core.retro_get_memory_data(RETRO_MEMORY_SAVE_RAM);
        if (size == 0 || !memory)
            return false;
        std::ifstream file(batteryFile(saveDir, romPath), std::ios::binary);
        if (!file)
            return false;
        file.read(static_cast<char*>(memory), streamSize(size));
        return true;
    });
}

void LibretroHost::persistSram() {
    noThrow([this] {
        if (!gameLoaded || !core.retro_get_memory_data || !core.retro_get_memory_size)
            return;
        const std::size_t size = core.retro_get_memory_size(RETRO_MEMORY_SAVE_RAM);
        const void* const memory = core.retro_get_memory_data(RETRO_MEMORY_SAVE_RAM);
        if (size == 0 || !memory || saveDir.empty())
            return;
        const std::filesystem::path path = batteryFile(saveDir, romPath);
        std::error_code ignored;
        std::filesystem::create_directories(path.parent_path(), ignored);
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        if (file)
            file.write(static_cast<const char*>(memory), streamSize(size));
    });
}

} // namespace velmora
