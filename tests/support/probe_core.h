#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <SDL3/SDL.h>

#include "cores/probe.h"

namespace velmora::test {

// The test's own handle of a probe core module, with what the core says back at its defaults. A
// host that loads `path` meets the same module, so `->` reads and scripts the core that it runs:
//
//     ProbeCore core;
//     core.on("retro_run", [&] { core->video_refresh(pixels, 256, 224, 512); });
//     host.loadCore(core.path);
class ProbeCore {
public:
    explicit ProbeCore(const std::string& name = "probe_core")
        : path(pathOf(name)), module(SDL_LoadObject(path.string().c_str())) {
        if (!module)
            throw std::runtime_error(SDL_GetError());
        const auto access = SDL_LoadFunction(module, "probe_access");
        data = reinterpret_cast<decltype(&::probe_access)>(access)();
        data->user = this;
        data->entered = [](void* self, const char* entry) {
            const auto& scripted = static_cast<ProbeCore*>(self)->hooks;
            if (const auto hook = scripted.find(entry); hook != scripted.end())
                hook->second();
        };
    }
    ~ProbeCore() {
        data->entered = nullptr;
        SDL_UnloadObject(module);
    }
    ProbeCore(const ProbeCore&) = delete;
    ProbeCore& operator=(const ProbeCore&) = delete;

    static std::filesystem::path pathOf(const std::string& name) {
        return std::filesystem::path(VELMORA_PROBE_DIRECTORY) / (name + VELMORA_PROBE_SUFFIX);
    }

    probe* operator->() { return data; }

    // Has `work` done inside the core each time the host enters `entry`, a literal.
    void on(std::string_view entry, std::function<void()> work) { hooks[entry] = std::move(work); }

    // The entry points called since the last time this was asked.
    std::vector<std::string> takeCalls() {
        std::vector<std::string> calls(data->calls, data->calls + data->call_count);
        data->call_count = 0;
        return calls;
    }

    // How often the module has been asked for its core since it was opened first.
    unsigned accesses() const { return data->accesses; }

    const std::filesystem::path path;

private:
    SDL_SharedObject* module;
    probe* data = nullptr;
    std::map<std::string_view, std::function<void()>> hooks;
};

} // namespace velmora::test
