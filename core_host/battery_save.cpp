#include <cstdint>
#include <fstream>
#include <span>

#include <velmora/libretro_host.h>

#include "core_host/size_limit.h"
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

// Moves the bytes straight between the file and the core's memory.
template <class Stream>
Stream openUnbuffered(const std::filesystem::path& path, std::ios::openmode mode) {
    Stream file;
    file.rdbuf()->pubsetbuf(nullptr, 0);
    file.open(path, mode | std::ios::binary);
    return file;
}

} // namespace

// Empty for a core that lends none, or claims more than any machine had.
std::span<char> LibretroHost::batteryMemory() const {
    const std::size_t size = core.retro_get_memory_size(RETRO_MEMORY_SAVE_RAM);
    void* const memory = core.retro_get_memory_data(RETRO_MEMORY_SAVE_RAM);
    if (!memory || size > sizeLimit)
        return {};
    return {static_cast<char*>(memory), size};
}

// A file that is not there is no failure. Too little memory is: without its save the game would
// start anew, and write that over the save in the end.
bool LibretroHost::loadSram() {
    if (!core.retro_get_memory_data || !core.retro_get_memory_size || saveDir.empty())
        return false;
    const std::span<char> memory = batteryMemory();
    if (memory.empty())
        return false;
    const std::filesystem::path path = batteryFile(saveDir, romPath);
    // Opening a pipe would wait for its other end.
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored))
        return false;
    auto file = openUnbuffered<std::ifstream>(path, std::ios::in);
    if (!file)
        return false;
    file.read(memory.data(), static_cast<std::streamsize>(memory.size()));
    return true;
}

void LibretroHost::persistSram() {
    noThrow([this] {
        if (!gameLoaded || !core.retro_get_memory_data || !core.retro_get_memory_size)
            return;
        const std::span<const char> memory = batteryMemory();
        if (memory.empty() || saveDir.empty())
            return;
        const std::filesystem::path path = batteryFile(saveDir, romPath);
        std::error_code ignored;
        std::filesystem::create_directories(path.parent_path(), ignored);
        if (std::filesystem::is_fifo(path, ignored))
            return;
        auto file = openUnbuffered<std::ofstream>(path, std::ios::out | std::ios::trunc);
        if (file)
            file.write(memory.data(), static_cast<std::streamsize>(memory.size()));
    });
}

} // namespace velmora
