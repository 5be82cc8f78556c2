// The shortest honest embedding: one core, one game, picture, sound and input.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <SDL3/SDL.h>
#include <SDL3/SDL_main.h> // on Windows too main's arguments are UTF-8 then

#include <velmora/libretro_host.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

namespace {

int fail(const std::string& reason) {
    std::fprintf(stderr, "velmora-minimal: %s\n", reason.c_str());
    return EXIT_FAILURE;
}

std::filesystem::path toPath(const char* utf8) { return reinterpret_cast<const char8_t*>(utf8); }

// `frameLimit` 0 plays until the window is closed.
int play(const char* core, const char* game, long frameLimit) {
    // Made in this order, ended in the reverse: a core may call its outputs until `host` is gone.
    velmora::SdlVideo video;
    velmora::SdlAudio audio;
    velmora::SdlInput input;
    velmora::LibretroHost host;
    host.video = &video;
    host.audio = &audio;
    host.input = &input;
    input.open();
    host.setDirectories(".", ".");

    if (!host.loadCore(toPath(core)) || !host.loadGame(toPath(game))) {
        video.destroy();
        return fail(host.lastError);
    }
    if (!video.create(game, static_cast<int>(host.width), static_cast<int>(host.height))) {
        return fail(SDL_GetError());
    }
    // Without a device the game is silent.
    audio.open(static_cast<int>(std::min(host.sampleRate, 768000.0)));

    bool quit = false;
    Uint64 due = SDL_GetTicksNS();
    for (long frame = 0; !quit && !host.shutdownRequested; ++frame) {
        if (frameLimit > 0 && frame == frameLimit) {
            break;
        }
        video.pumpEvents(quit);
        host.runFrame();
        video.present();
        // Nothing is waited for twice: the display's own refresh has used up a part of the time.
        const Uint64 now = SDL_GetTicksNS();
        due = std::max(due + static_cast<Uint64>(SDL_NS_PER_SECOND / host.fps), now);
        SDL_DelayPrecise(due - now);
    }
    // Before the core goes: a core that draws with OpenGL ends inside this call.
    video.destroy();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4) {
        std::fputs("usage: velmora-minimal CORE GAME [FRAMES]\n", stderr);
        return 2;
    }
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // Ctrl-C just ends this program
    if (!SDL_Init(SDL_INIT_VIDEO)) {
        return fail(SDL_GetError());
    }
    SDL_InitSubSystem(SDL_INIT_AUDIO);
    const int result = play(argv[1], argv[2], argc == 4 ? std::atol(argv[3]) : 0);
    SDL_Quit();
    return result;
}
