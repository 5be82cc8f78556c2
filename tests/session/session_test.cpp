#include <array>
#include <functional>
#include <utility>
#include <vector>

#include <velmora/input_bindings.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>

#include "bindings/stored_bindings.h"
#include "core_host/host_test.h"
#include "video/window_picture.h"

namespace velmora::test {
namespace {

// What a core hands over when it asks for OpenGL: its callbacks, and what they do.
std::function<void()> onContextReset;
int contextsDestroyed = 0;

retro_hw_render_callback openGl() {
    retro_hw_render_callback record = {};
    record.context_type = RETRO_HW_CONTEXT_OPENGL_CORE;
    record.context_reset = [] { onContextReset(); };
    record.context_destroy = [] { ++contextsDestroyed; };
    record.bottom_left_origin = true;
    return record;
}

// A host with the outputs that a frontend gives it, and the probe core in it.
class SessionTest : public VideoTest {
protected:
    SessionTest() {
        writeFile(game, "the whole game");
        onContextReset = [] {};
        contextsDestroyed = 0;
        host.video = &video;
        host.audio = &audio;
        host.input = &input;
    }
    ~SessionTest() override { end(); }

    // The documented order.
    void end() {
        video.destroy();
        host.unload();
    }

    void start() {
        ASSERT_TRUE(host.loadCore(core.path)) << host.lastError;
        ASSERT_TRUE(host.loadGame(game)) << host.lastError;
        ASSERT_TRUE(
            video.create("Probe", static_cast<int>(host.width), static_cast<int>(host.height)));
    }

    bool askForOpenGl() {
        retro_hw_render_callback record = openGl();
        return core->environment(RETRO_ENVIRONMENT_SET_HW_RENDER, &record);
    }

    const std::filesystem::path game = directory / "game.bin";
    SdlAudio audio;
    SdlInput input;
    ProbeCore core;
    LibretroHost host;
};

TEST_F(SessionTest, AClosedCoreIsNotCalledWhateverItAskedForAndWhen) {
    const auto askAndFail = [&] {
        EXPECT_TRUE(askForOpenGl());
        throw std::runtime_error("core fault");
    };
    for (const auto& [entry, starts] : {std::pair("retro_set_environment", false),
                                        {"retro_init", false},
                                        {"retro_unload_game", true},
                                        {"retro_deinit", true}}) {
        start();
        core.on(entry, askAndFail);
        host.unload();
        EXPECT_EQ(host.loadCore(core.path), starts);
        host.unload();
        video.destroy();
        EXPECT_EQ(contextsDestroyed, 0) << entry;
        core.on(entry, [] {});
    }
}

} // namespace
} // namespace velmora::test
