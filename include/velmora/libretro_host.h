#pragma once

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <velmora/export.h>
#include <velmora/libretro.h>

namespace velmora {

class SdlAudio;
class SdlInput;
class SdlVideo;

// The libretro frontend object: at most one core module and one game running in it.
//
// A libretro callback carries no user data, so one process serves one core: the instance that
// loaded a core last. The order of a session: store `video`, `audio` and `input`, `setDirectories`,
// `loadCore`, `loadGame`, then `runFrame` once per frame, and at the end SdlVideo::destroy followed
// by `unload`. To play another game go through the same stop and call `loadCore` again.
//
// Threads: `loadCore`, `loadGame`, `runFrame`, `reset`, `saveState` and `loadState` exclude each
// other and may come from different threads; that is meant for a worker that saves and loads states
// while another thread runs the frames. `unload`, `persistSram`, `setDirectories` and the
// destructor take no lock: call them on the thread that runs the frames, or when no frame runs. The
// core calls back on the thread that entered it, and reaches SdlVideo, SdlAudio and SdlInput there:
// with a core that renders through OpenGL all six belong to the thread that owns the window.
// Nothing reached from a callback may call one of the six; a message handler installed with Qt is
// such a place, since what the host and the core log is logged with the lock held.
//
// No operation throws. An operation that returns false leaves its reason in `lastError`. What a
// core throws ends there: a frame, a reset, a step of `unload` or of `persistSram` counts as done;
// from retro_load_game, retro_serialize or retro_unserialize it is the refusal of that entry point;
// from any other it fails the operation with "Unexpected failure", and the exception's text where
// there is one, or with "Out of memory". The module of a core that threw stays mapped until the
// process ends, as threads of its own may still run in it; loaded again, it is found as it was
// left.
//
// Files: a directory or a pipe in a file's place counts as one that cannot be opened; a pipe is
// never waited for.
class VELMORA_EXPORT LibretroHost {
public:
    // Touches no file and no module.
    LibretroHost() = default;
    // Does what `unload` does.
    ~LibretroHost();
    LibretroHost(const LibretroHost&) = delete;
    LibretroHost& operator=(const LibretroHost&) = delete;

    // Opens the core module at `path`, binds it and starts it. A relative path counts from the
    // current directory; no search path is used. What was loaded before is unloaded first, also
    // when the new core then fails. False: the module cannot be opened, lacks a required symbol or
    // speaks another API version; nothing is loaded then.
    bool loadCore(const std::filesystem::path& path);

    // Gives the running core the game at `path`, reads timing and geometry, plugs a joypad into
    // port 0 and loads the battery save. Call it once after each successful `loadCore`. False: no
    // core is running, the file cannot be read, or the core rejected it; the core stays loaded and
    // another game may be tried. A file of more than 4 GiB is not read into memory: a system may
    // promise what it has not and end the program. Cores with larger games read them by the path.
    bool loadGame(const std::filesystem::path& path);

    // Writes the battery save, ends the game and the core, and closes the module. Safe when nothing
    // is loaded. On the hardware path call SdlVideo::destroy first: it calls into the core.
    void unload();

    // Resets the running game; without one, does nothing.
    void reset();

    // Runs the core for one frame; without a game, does nothing. No pacing happens here and nothing
    // is shown: the frontend keeps time at `fps` and calls SdlVideo::present.
    void runFrame();

    // Writes the core's state to the file at `path`: exactly the bytes of retro_serialize, no
    // header. Missing parent directories are made; an existing file is overwritten in place. Waits
    // for a frame in progress. False: no game, the core cannot or would not, there is no memory for
    // the state (more than 4 GiB counts as such, see `loadGame`), or the file could not be opened,
    // or not be written whole (only then is the old content gone).
    bool saveState(const std::filesystem::path& path);

    // Gives the core the state in the file at `path`. A file of another size than the core expects
    // is offered as it is, and once more padded with zeros or cut to the core's own size. False: no
    // game, no file, an empty one or one of more than 4 GiB, or the core refused; a core that
    // refused is not put back.
    bool loadState(const std::filesystem::path& path);

    // Writes the running game's battery memory to `<save directory>/<game stem>.srm`: the raw
    // bytes, no header, the whole file each time. Silent: a save that cannot be written is not
    // reported. A save that was there when the game started and could not be read is not written
    // over until the next `loadGame`, nor is one written from a size that no memory has.
    void persistSram();

    // Sets the directory in which cores look for their system files and the one in which battery
    // saves (and whatever cores put there) live. Neither is tested or made here. An empty save
    // directory means that there are no battery saves. Call it before `loadCore`: cores keep
    // pointers to these texts.
    void setDirectories(const std::filesystem::path& systemDirectory,
                        const std::filesystem::path& saveDirectory);

private:
    struct VELMORA_LOCAL EnvironmentCommands;

    // The core's entry points, in the order in which they are bound; the last three are optional.
    struct EntryPoints {
        decltype(&::retro_set_environment) retro_set_environment = nullptr;
        decltype(&::retro_set_video_refresh) retro_set_video_refresh = nullptr;
        decltype(&::retro_set_audio_sample) retro_set_audio_sample = nullptr;
        decltype(&::retro_set_audio_sample_batch) retro_set_audio_sample_batch = nullptr;
        decltype(&::retro_set_input_poll) retro_set_input_poll = nullptr;
        decltype(&::retro_set_input_state) retro_set_input_state = nullptr;
        decltype(&::retro_init) retro_init = nullptr;
        decltype(&::retro_deinit) retro_deinit = nullptr;
        decltype(&::retro_api_version) retro_api_version = nullptr;
        decltype(&::retro_get_system_info) retro_get_system_info = nullptr;
        decltype(&::retro_get_system_av_info) retro_get_system_av_info = nullptr;
        decltype(&::retro_set_controller_port_device) retro_set_controller_port_device = nullptr;
        decltype(&::retro_reset) retro_reset = nullptr;
        decltype(&::retro_run) retro_run = nullptr;
        decltype(&::retro_load_game) retro_load_game = nullptr;
        decltype(&::retro_unload_game) retro_unload_game = nullptr;
        decltype(&::retro_get_memory_data) retro_get_memory_data = nullptr;
        decltype(&::retro_get_memory_size) retro_get_memory_size = nullptr;
        decltype(&::retro_serialize_size) retro_serialize_size = nullptr;
        decltype(&::retro_serialize) retro_serialize = nullptr;
        decltype(&::retro_unserialize) retro_unserialize = nullptr;
    };

    bool startCore(const std::filesystem::path& path);
    bool loadSymbols();
    void setCallbacks();

    static bool environmentThunk(unsigned int command, void* data);
    static void videoRefreshThunk(const void* data, unsigned int frameWidth,
                                  unsigned int frameHeight, std::size_t pitch);
    static void audioSampleThunk(std::int16_t left, std::int16_t right);
    static std::size_t audioBatchThunk(const std::int16_t* data, std::size_t frames);
    static void inputPollThunk();
    static std::int16_t inputStateThunk(unsigned int port, unsigned int device, unsigned int index,
                                        unsigned int id);
    static void logThunk(retro_log_level level, const char* format, ...);

    bool environment(std::uint32_t number, void* data);
    void adoptTiming(const retro_system_timing& timing);
    void adoptGeometry(const retro_game_geometry& geometry);
    void registerVariable(const char* key, const char* value);
    void registerLegacyVariables(const retro_variable* list);
    void registerOptionDefinitions(const retro_core_option_definition* list);
    void registerOptionDefinitionsV2(const retro_core_option_v2_definition* list);
    bool readVariable(retro_variable& variable) const;
    bool startGame(const std::filesystem::path& path);
    void adoptGame();
    std::pair<char*, std::size_t> batteryMemory() const;
    bool loadSram();
    bool takeState(std::vector<std::uint8_t>& state);
    bool offerState(const char* state, std::size_t fileSize, std::size_t coreSize);

    // The instance that serves the core's callbacks.
    static LibretroHost* active;

    void* module = nullptr;
    bool coreLoaded = false;
    bool gameLoaded = false;

public:
    // The core asked to stop. Nothing in the library acts on it; `unload` resets it.
    bool shutdownRequested = false;

private:
    std::uint32_t pixelFormat = RETRO_PIXEL_FORMAT_0RGB1555;

public:
    // Timing and base geometry of the running core: frames per second, audio frames per second,
    // pixels. Until a core has reported its own they hold these values; they survive `unload`. A
    // core may change them in any frame.
    double fps = 60.0;
    double sampleRate = 32768.0;
    std::uint32_t width = 240;
    std::uint32_t height = 160;

    // UTF-8 text of the latest failure, for the user. Never cleared: it means something only right
    // after an operation has returned false, on the thread that called it, and before another
    // thread calls one: no lock guards it.
    std::string lastError;

private:
    std::string systemDir;
    std::string saveDir;
    std::filesystem::path romPath;
    std::vector<std::uint8_t> romData;
    std::unordered_map<std::string, std::string> variables;

public:
    // The outputs, not owned, each may be null: what is meant for a missing one is dropped. Written
    // by the frontend before `loadCore`; they must outlive `unload`, which calls `video`.
    SdlVideo* video = nullptr;
    SdlAudio* audio = nullptr;
    SdlInput* input = nullptr;

private:
    std::mutex mutex;
    EntryPoints core;
    // The battery save that was there and could not be read; empty for none.
    std::filesystem::path unreadSave;
};

} // namespace velmora
