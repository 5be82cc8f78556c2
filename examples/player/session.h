#pragma once

#include <atomic>
#include <string>

#include <velmora/input_bindings.h>
#include <velmora/libretro_host.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

#include "options.h"

union SDL_Event;

namespace player {

// SDL for as long as anything may use it.
class SdlLibrary {
public:
    SdlLibrary() = default;
    ~SdlLibrary();
    SdlLibrary(const SdlLibrary&) = delete;
    SdlLibrary& operator=(const SdlLibrary&) = delete;

    // False without a display. Sound that does not come up leaves a silent game.
    bool open();

    // Ctrl-C, a closing desktop session or the system wants the program to end. The window's own
    // close request comes through SdlVideo::pumpEvents, which leaves this one to the frontend.
    std::atomic<bool> quitRequested = false;

    // The graphics device of a window was lost or reset; and that window was in fullscreen.
    std::atomic<bool> deviceLost = false;
    std::atomic<bool> lostInFullscreen = false;

private:
    static bool note(void* library, SDL_Event* event);
};

// One game from start to stop: the library's objects, made and ended in the order they need.
class Session {
public:
    Session() = default;
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // False: `failure` says why, and the object is only good for destruction.
    bool start(const Options& options);

    // Cores may change their sample rate in any frame.
    void followSampleRate();

    // Opens a gamepad that was plugged in, or lets go of one that was pulled out.
    void followGamepad();

    // Opens the window anew when the graphics device was lost with all that it showed. True when
    // that has happened: the core's next frame is the first in it.
    bool followGraphicsDevice();

    std::string failure;

private:
    bool openWindow(bool fullscreen);
    void openSound();

    int soundRate = 0;
    std::string title;

public:
    SdlLibrary sdl;
    velmora::InputBindings bindings;
    velmora::SdlVideo video;
    velmora::SdlAudio audio;
    velmora::SdlInput input;
    velmora::LibretroHost host;
};

} // namespace player
