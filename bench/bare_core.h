#pragma once

#include <filesystem>
#include <string>

#include <velmora/libretro.h>
#include <velmora/libretro_host.h>

#include "support/scratch_directory.h"

struct SDL_SharedObject;

namespace velmora::bench {

// A core driven by nothing but a loop: what a host is measured against. It plays a copy of the
// module, so that its statics are apart from those of the same core in a LibretroHost.
class BareCore {
public:
    // Throws std::runtime_error where the core does not start.
    BareCore(const std::filesystem::path& module, const std::filesystem::path& scratch,
             const std::filesystem::path& game);
    ~BareCore();
    BareCore(const BareCore&) = delete;
    BareCore& operator=(const BareCore&) = delete;

    void run() const { entryRun(); }
    std::size_t stateSize() const { return entryStateSize(); }
    bool serialize(void* data, std::size_t size) const { return entrySerialize(data, size); }
    bool unserialize(const void* data, std::size_t size) const {
        return entryUnserialize(data, size);
    }

private:
    template <class Function>
    Function bind(Function, const char* name) const;
    bool start(const std::filesystem::path& game);

    SDL_SharedObject* module = nullptr;
    std::string bytes;
    decltype(&::retro_run) entryRun = nullptr;
    decltype(&::retro_serialize_size) entryStateSize = nullptr;
    decltype(&::retro_serialize) entrySerialize = nullptr;
    decltype(&::retro_unserialize) entryUnserialize = nullptr;
};

// Plays the game in the host; throws std::runtime_error with the host's reason where it does not.
void start(LibretroHost& host, const std::filesystem::path& core,
           const std::filesystem::path& game);

// A file for the bench core, saying what it does in a frame.
std::filesystem::path workloadFile(const test::ScratchDirectory& directory,
                                   const std::string& text);

} // namespace velmora::bench
