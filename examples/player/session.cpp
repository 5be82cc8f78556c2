#include "session.h"

#include <cstdio>

#include <SDL3/SDL.h>

namespace player {
namespace {

// A rate that no device has counts as none: the default then applies.
int rateOf(double sampleRate) {
    const bool plausible = sampleRate >= 1.0 && sampleRate <= 768000.0;
    return plausible ? static_cast<int>(sampleRate + 0.5) : 0;
}

// Battery saves fail silently: that they have no place is told beforehand.
void makeDirectory(const std::filesystem::path& directory) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) {
        std::fprintf(stderr, "velmora-player: nothing will be saved: %s: %s\n",
                     toUtf8(directory).c_str(), error.message().c_str());
    }
}

} // namespace

SdlLibrary::~SdlLibrary() {
    SDL_RemoveEventWatch(note, this);
    SDL_Quit();
}

bool SdlLibrary::open() {
    if (!SDL_Init(SDL_INIT_VIDEO)) {
        return false;
    }
    SDL_AddEventWatch(note, this);
    if (!SDL_InitSubSystem(SDL_INIT_AUDIO)) {
        std::fprintf(stderr, "velmora-player: no sound: %s\n", SDL_GetError());
    }
    return true;
}

bool SdlLibrary::note(void* library, SDL_Event* event) {
    auto& self = *static_cast<SdlLibrary*>(library);
    if (event->type == SDL_EVENT_QUIT) {
        self.quitRequested = true;
    } else if (event->type == SDL_EVENT_RENDER_DEVICE_LOST ||
               event->type == SDL_EVENT_RENDER_DEVICE_RESET) {
        const SDL_WindowFlags flags = SDL_GetWindowFlags(SDL_GetWindowFromEvent(event));
        self.lostInFullscreen = (flags & SDL_WINDOW_FULLSCREEN) != 0;
        self.deviceLost = true;
    }
    return true;
}

Session::~Session() {
    // The window goes first: on the hardware path its end calls into the core.
    video.destroy();
    host.unload();
}

bool Session::start(const Options& options) {
    if (!sdl.open()) {
        failure = std::string("no display: ") + SDL_GetError();
        return false;
    }
    host.video = &video;
    host.audio = &audio;
    host.input = &input;
    input.systemId = options.systemId;
    input.open();
    makeDirectory(options.saveDirectory);
    host.setDirectories(options.systemDirectory, options.saveDirectory);
    if (!host.loadCore(options.core) || !host.loadGame(options.game)) {
        failure = host.lastError;
        return false;
    }
    title = toUtf8(options.game.stem()) + " - Velmora";
    if (!openWindow(options.fullscreen)) {
        failure = std::string("no window: ") + SDL_GetError();
        return false;
    }
    audio.muted = options.muted;
    openSound();
    return true;
}

void Session::followSampleRate() {
    if (rateOf(host.sampleRate) != soundRate) {
        openSound();
    }
}

void Session::followGamepad() {
    const bool connected = input.pad != nullptr && SDL_GamepadConnected(input.pad);
    if (!connected && (input.pad != nullptr || SDL_HasGamepad())) {
        input.open();
    }
}

bool Session::followGraphicsDevice() {
    if (!sdl.deviceLost.exchange(false)) {
        return false;
    }
    if (!openWindow(sdl.lostInFullscreen)) {
        std::fprintf(stderr, "velmora-player: no window: %s\n", SDL_GetError());
        sdl.quitRequested = true;
    }
    return true;
}

bool Session::openWindow(bool fullscreen) {
    if (!video.create(title, static_cast<int>(host.width), static_cast<int>(host.height))) {
        return false;
    }
    if (fullscreen && !video.setFullscreen(true)) {
        std::fprintf(stderr, "velmora-player: no fullscreen: %s\n", SDL_GetError());
    }
    return true;
}

void Session::openSound() {
    soundRate = rateOf(host.sampleRate);
    if (!SDL_WasInit(SDL_INIT_AUDIO)) {
        return;
    }
    if (!audio.open(soundRate)) {
        std::fprintf(stderr, "velmora-player: no sound: %s\n", SDL_GetError());
        return;
    }
    std::printf("audio %d Hz\n", soundRate > 0 ? soundRate : 48000);
    std::fflush(stdout);
}

} // namespace player
