// A real game as a user plays it, with all outputs or some, against the bare loop of its core.
#include <SDL3/SDL_error.h>

#include <stdexcept>

#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

#include "bare_core.h"
#include "binding_store.h"
#include "gl.h"
#include "ratio_table.h"

namespace velmora::bench {
namespace {

struct Outputs {
    bool picture = false;
    bool sound = false;
    bool bindings = false;
};

class Session {
public:
    Session() {
        host.setDirectories(scratch.path(), scratch.path());
        start(host, VELMORA_NES_CORE, VELMORA_NES_GAME);
        if (!video.create("bench", static_cast<int>(host.width), static_cast<int>(host.height)) ||
            !audio.open(static_cast<int>(host.sampleRate)))
            throw std::runtime_error(SDL_GetError());
        input.systemId = "nes";
        input.open();
    }
    ~Session() { video.destroy(); }

    Side with(Outputs outputs) {
        return {[this] { frame(); }, [this, outputs] { select(outputs); }};
    }

private:
    void select(Outputs outputs) {
        host.video = outputs.picture ? &video : nullptr;
        host.audio = outputs.sound ? &audio : nullptr;
        host.input = outputs.bindings ? &input : nullptr;
        store.bind();
    }

    // A frontend's loop, without its wait for the next frame.
    void frame() {
        if (host.video) {
            bool quit = false;
            video.pumpEvents(quit);
        }
        host.runFrame();
        if (host.video) {
            video.present();
            finishFrame();
        }
    }

    test::ScratchDirectory scratch;
    BindingStore store{20};
    SdlVideo video;
    SdlAudio audio;
    SdlInput input;
    LibretroHost host;
};

} // namespace

void measureSession(const RatioTable& table) {
    const test::ScratchDirectory scratch;
    const BareCore core(VELMORA_NES_CORE, scratch.path(), VELMORA_NES_GAME);
    Session session;
    const char* const loop = "the core's bare loop";
    const Side bare = {[&] { core.run(); }};
    const Side silent = session.with({});
    table.ratio({"a frame of an NES game in the host", loop, Clock::Thread, 1.03}, silent, bare);
    table.ratio({"that frame with picture, sound and bindings", loop, Clock::Process},
                session.with({.picture = true, .sound = true, .bindings = true}), bare);
    const auto part = [&](const char* what, Clock clock, Outputs outputs) {
        table.surplus({what, "that frame in the host", clock}, 1, session.with(outputs), silent);
    };
    part("the picture of that frame", Clock::Process, {.picture = true});
    part("its sound", Clock::Thread, {.sound = true});
    part("its bindings", Clock::Thread, {.bindings = true});
}

} // namespace velmora::bench
