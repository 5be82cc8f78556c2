#include <array>
#include <chrono>
#include <cstring>
#include <functional>
#include <utility>
#include <vector>

#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>

#include "audio_input/virtual_pad.h"
#include "core_host/host_test.h"
#include "video/window_picture.h"

namespace velmora::test {
namespace {

// What the core's callbacks do that it hands over when it asks for OpenGL.
std::function<void()> onContextReset;
int contextsDestroyed = 0;

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
        record.context_reset = [] { onContextReset(); };
        record.context_destroy = [] { ++contextsDestroyed; };
        return core->environment(RETRO_ENVIRONMENT_SET_HW_RENDER, &record);
    }

    void announce(unsigned width, unsigned height) {
        retro_game_geometry geometry = {width, height, width, height, 0};
        EXPECT_TRUE(core->environment(RETRO_ENVIRONMENT_SET_GEOMETRY, &geometry));
    }

    // One frame of the core, which does this in it.
    void run(const std::function<void()>& frame) {
        core.on("retro_run", frame);
        host.runFrame();
    }

    const std::filesystem::path game = directory / "game.bin";
    SdlAudio audio;
    SdlInput input;
    ProbeCore core;
    LibretroHost host;
};

TEST_F(SessionTest, APictureArrivesWholeInTheFormatThatCameBeforeIt) {
    // Four by two, in rows of twelve bytes.
    const std::array<std::uint16_t, 10> pixels = {0x7c00, 0x03e0, 0x001f, 0x7fff, 0xeeee,
                                                  0xeeee, 0x03e0, 0x001f, 0x7fff, 0x7c00};
    const auto show = [&](unsigned format) {
        run([&] {
            core->environment(RETRO_ENVIRONMENT_SET_PIXEL_FORMAT, &format);
            core->video_refresh(pixels.data(), 4, 2, 12);
        });
        presentForReading();
        return screenshot();
    };
    constexpr unsigned unknown = 3;
    start(); // a window of 768 by 672
    const Picture shown = show(unknown);
    EXPECT_EQ(shown.at(96, 240), 0xf80000U);
    EXPECT_EQ(shown.at(672, 240), 0xf8f8f8U);
    EXPECT_EQ(shown.at(96, 432), 0x00f800U);
    EXPECT_EQ(shown.at(672, 432), 0xf80000U);
    EXPECT_EQ(show(RETRO_PIXEL_FORMAT_RGB565).at(96, 240), 0x788000U);
    end();
    start();
    EXPECT_EQ(show(unknown).at(96, 240), 0x788000U) << "the format of the core before";
}

TEST_F(SessionTest, SoundArrivesWholeAndInOrder) {
    constexpr std::size_t chunkBytes = 512 * 4;
    const auto file = directory / "sound";
    SDL_SetHintWithPriority(SDL_HINT_AUDIO_DRIVER, "disk", SDL_HINT_OVERRIDE);
    SDL_SetHint(SDL_HINT_AUDIO_DISK_OUTPUT_FILE, file.string().c_str());
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_SAMPLE_FRAMES, "512");
    ASSERT_TRUE(SDL_InitSubSystem(SDL_INIT_AUDIO)) << SDL_GetError();
    start();
    ASSERT_TRUE(audio.open(static_cast<int>(host.sampleRate))) << SDL_GetError();
    const std::vector<std::int16_t> batch = {1, -2, 3, -4, 5, -6};
    run([&] {
        core->audio_sample(100, -200);
        EXPECT_EQ(core->audio_sample_batch(batch.data(), 3), 3U);
        core->audio_sample(300, -400);
    });
    // The device takes what there is a chunk at a time; silence may stand before, between, after.
    const auto soon = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    const auto enough = std::filesystem::file_size(file) + 3 * chunkBytes;
    while (std::filesystem::file_size(file) < enough && std::chrono::steady_clock::now() < soon)
        SDL_Delay(5);
    audio.close(); // Windows lets nobody read before
    const std::string bytes = readFile(file);
    std::vector<std::int16_t> heard(bytes.size() / 2);
    std::memcpy(heard.data(), bytes.data(), heard.size() * 2);
    std::erase(heard, 0);
    EXPECT_EQ(heard, (std::vector<std::int16_t>{100, -200, 1, -2, 3, -4, 5, -6, 300, -400}));
}

TEST_F(SessionTest, KeysAndPadArriveWithThePollUnderTheirOwnNumbers) {
    const VirtualPad pad;
    auto* keys = const_cast<bool*>(SDL_GetKeyboardState(nullptr));
    const auto held = [&](unsigned index, unsigned id) {
        std::int16_t state = -1;
        run([&] { state = core->input_state(0, RETRO_DEVICE_JOYPAD, index, id); });
        return state;
    };
    start();
    input.open();
    keys[SDL_SCANCODE_RETURN] = true;
    pad.hold({SDL_GAMEPAD_BUTTON_DPAD_UP});
    SDL_PumpEvents();
    EXPECT_EQ(held(0, RETRO_DEVICE_ID_JOYPAD_MASK), 0) << "not polled";
    run([&] { core->input_poll(); });
    keys[SDL_SCANCODE_RETURN] = false;
    EXPECT_EQ(held(0, RETRO_DEVICE_ID_JOYPAD_MASK), 1 << 3 | 1 << 4);
    EXPECT_EQ(held(0, RETRO_DEVICE_ID_JOYPAD_START), 1);
    EXPECT_EQ(held(RETRO_DEVICE_ID_JOYPAD_START, 0), 0) << "an index is no id";
}

TEST_F(SessionTest, AHardwareSessionFollowsTheSizesThatTheCoreAnnounces) {
    core.on("retro_load_game", [&] {
        announce(600, 490);
        EXPECT_TRUE(askForOpenGl()) << host.lastError;
    });
    start();
    EXPECT_EQ(windowSize(), (SDL_Point{1200, 980}));
    EXPECT_EQ(framebufferSize(), (SDL_Point{640, 490}));
    run([&] { announce(900, 520); });
    EXPECT_EQ(framebufferSize(), (SDL_Point{900, 520}));
    retro_system_av_info info = {{650, 480, 0, 0, 0}, {50, 48000}};
    run([&] { core->environment(RETRO_ENVIRONMENT_SET_SYSTEM_AV_INFO, &info); });
    EXPECT_EQ(framebufferSize(), (SDL_Point{650, 480}));

    // A frame twice as wide as high leaves bars above and below it.
    run([&] {
        fill(0, 0, 200, 100, 0, 1, 0);
        core->video_refresh(RETRO_HW_FRAME_BUFFER_VALID, 200, 100, 12345);
    });
    video.present();
    const Picture shown = shownByGl();
    EXPECT_EQ(shown.at(0, 490), 0x00ff00U);
    EXPECT_EQ(shown.at(1199, 490), 0x00ff00U);
    EXPECT_NE(shown.at(600, 100), 0x00ff00U);
}

// GL's names begin anew with each context: one kept from the last session is one of the core's.
TEST_F(SessionTest, TheOverlayOfTheNextSessionLeavesTheCoresOwnTextureAlone) {
    video.hud.message = "A message";
    video.hud.showMessage = true;
    core.on("retro_load_game", [&] { EXPECT_TRUE(askForOpenGl()) << host.lastError; });
    const auto play = [&] {
        start();
        run([&] { core->video_refresh(RETRO_HW_FRAME_BUFFER_VALID, 256, 224, 0); });
        presentForReading();
        EXPECT_NE(shownByGl().at(1, 1), shownByGl().at(1, 100)) << "no strip";
    };
    play();
    end();
    GLuint texture = 0;
    GLuint framebuffer = 0;
    onContextReset = [&] {
        CORE_GL(glGenTextures, 1, &texture);
        CORE_GL(glBindTexture, GL_TEXTURE_2D, texture);
        CORE_GL(glTexImage2D, GL_TEXTURE_2D, 0, GL_RGBA8, 64, 64, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                nullptr);
        CORE_GL(glGenFramebuffers, 1, &framebuffer);
        CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER, framebuffer);
        CORE_GL(glFramebufferTexture2D, GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                texture, 0);
        CORE_GL(glClearColor, 1, 0, 0, 1);
        CORE_GL(glClear, GL_COLOR_BUFFER_BIT);
        CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER, 0);
    };
    play();
    Uint32 pixel = 0;
    CORE_GL(glBindFramebuffer, GL_FRAMEBUFFER, framebuffer);
    CORE_GL(glReadPixels, 1, 1, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, &pixel);
    EXPECT_EQ(pixel, 0xff0000ffU) << "the core's own red";
    end();
    EXPECT_EQ(contextsDestroyed, 2);
}

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
