#pragma once

#include <filesystem>

#include <velmora/libretro_host.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

#include "support/scratch_directory.h"

namespace velmora::bench {

// A host with all outputs and a window, and a game running in it.
struct Session {
    Session(const std::filesystem::path& core, const std::filesystem::path& game) {
        host.video = &video;
        host.audio = &audio;
        host.input = &input;
        host.setDirectories(directory.path(), directory.path());
        running =
            host.loadCore(core) && host.loadGame(game) &&
            video.create("bench", static_cast<int>(host.width), static_cast<int>(host.height));
        audio.open(static_cast<int>(host.sampleRate));
    }
    ~Session() { video.destroy(); }

    // Some cores do not start without directories.
    test::ScratchDirectory directory;
    SdlVideo video;
    SdlAudio audio;
    SdlInput input;
    LibretroHost host;
    bool running = false;
};

// A file for the bench core, saying what it does in a frame.
inline std::filesystem::path workloadFile(const test::ScratchDirectory& directory,
                                          const std::string& text) {
    const std::filesystem::path path = directory / "workload.bench";
    test::writeFile(path, text);
    return path;
}

} // namespace velmora::bench
