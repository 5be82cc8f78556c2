#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <velmora/libretro.h>

struct SDL_SharedObject;

namespace velmora::bench {

// A core driven by nothing but a loop: what a host is measured against. It plays a copy of the
// module, so that its statics are apart from those of the same core in a LibretroHost.
class BareCore {
public:
    BareCore(const std::filesystem::path& module, const std::filesystem::path& scratch,
             const std::filesystem::path& game);
    ~BareCore();
    BareCore(const BareCore&) = delete;
    BareCore& operator=(const BareCore&) = delete;

    bool running() const { return started; }
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
    bool started = false;
    std::string bytes;
    decltype(&::retro_run) entryRun = nullptr;
    decltype(&::retro_serialize_size) entryStateSize = nullptr;
    decltype(&::retro_serialize) entrySerialize = nullptr;
    decltype(&::retro_unserialize) entryUnserialize = nullptr;
};

} // namespace velmora::bench
