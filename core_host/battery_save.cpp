#include <algorithm>
#include <cstdint>

#include <velmora/libretro_host.h>

#include "core_host/utf8_path.h"
#include "platform/core_call.h"
#include "platform/file.h"
#include "support/no_throw.h"

namespace velmora {

namespace {

// The ending is added, not put in an extension's place: "Some Game.v2" is the whole stem.
std::filesystem::path batteryFile(const std::string& saveDir, const std::filesystem::path& game) {
    std::filesystem::path file = pathFromUtf8(saveDir) / game.stem();
    file += ".srm";
    return file;
}

bool isAbsence(const std::error_code& failure) {
    return failure == std::errc::no_such_file_or_directory || failure == std::errc::not_a_directory;
}

// Fills the front of the memory with what the file holds.
bool readInto(char* memory, std::size_t size, QFile& file) {
    const qint64 length =
        static_cast<qint64>(std::min(std::uint64_t{size}, static_cast<std::uint64_t>(file.size())));
    return file.read(memory, length) == length;
}

} // namespace

// Only while a game runs, when both entry points are there. Null for a core that lends none.
std::pair<char*, std::size_t> LibretroHost::batteryMemory() const {
    const std::size_t size = platform::enterCore(core.retro_get_memory_size, RETRO_MEMORY_SAVE_RAM);
    void* const memory = platform::enterCore(core.retro_get_memory_data, RETRO_MEMORY_SAVE_RAM);
    return {size != 0 ? static_cast<char*>(memory) : nullptr, size};
}

// A file that is not there is no failure. Too little memory is: without its save the game would
// start anew, and write that over the save in the end.
bool LibretroHost::loadSram() {
    unreadSave.clear();
    if (saveDir.empty())
        return false;
    const auto [memory, size] = batteryMemory();
    if (!memory)
        return false;
    std::filesystem::path path = batteryFile(saveDir, romPath);
    platform::File file(path, QIODevice::ReadOnly);
    const bool read = !file.failure && readInto(memory, size, file);
    if (!read && !isAbsence(file.failure))
        unreadSave = std::move(path);
    return read;
}

// What could not be read is not written over: the game began without it.
void LibretroHost::persistSram() {
    noThrow([this] {
        if (!gameLoaded)
            return;
        const auto [memory, size] = batteryMemory();
        // No memory is larger than the difference of two pointers.
        if (!memory || size > PTRDIFF_MAX || saveDir.empty())
            return;
        const std::filesystem::path path = batteryFile(saveDir, romPath);
        if (path == unreadSave)
            return;
        std::error_code ignored;
        std::filesystem::create_directories(path.parent_path(), ignored);
        platform::File file(path, QIODevice::WriteOnly);
        if (!file.failure)
            file.write(memory, static_cast<qint64>(size));
    });
}

} // namespace velmora
