#include <array>
#include <set>

#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>

#include "core_host/host_test.h"
#include "support/counted_memory.h"

namespace velmora::test {

using Allocation = HostTest;

TEST_F(Allocation, FailureIsReportedAndTheHostStaysUsable) {
    const auto quiet = qInstallMessageHandler([](auto, const auto&, const auto&) {});
    const auto directory = scratch / "a directory with a name that needs memory of its own";
    std::filesystem::create_directory(directory);
    const auto longGame = directory / "a game.bin";
    const auto missing = directory / "missing";
    const auto state = directory / "state";
    writeFile(longGame, std::string(5000, 'g'));
    std::string memory = "12345678";
    core->save_ram = memory.data();
    core->save_ram_size = memory.size();
    core->state_size = 5000;
    std::vector<retro_variable> options(200);
    for (auto& option : options)
        option = {"an option with a key that needs memory of its own",
                  "; and a value that needs memory of its own"};
    constexpr const char* lastKey = "the last option's key that needs memory of its own";
    options[198].key = lastKey;
    options.back() = {};
    std::set<std::string> reasons;

    // Everything that a host does, with the n-th allocation of each armed part failing, alone or
    // with some that follow.
    const auto playOnce = [&](long n, long following) {
        const auto armed = [&](auto&& part) {
            memory::allocations = 0;
            memory::failTo = n + following;
            memory::failFrom = n;
            const bool result = part();
            memory::failFrom = memory::failTo = -1;
            return result;
        };
        LibretroHost instance;
        const auto attempt = [&](auto&& operation) {
            instance.lastError.clear();
            const bool done = armed(operation);
            EXPECT_EQ(done, instance.lastError.empty());
            reasons.insert(instance.lastError);
            return done;
        };
        // What failed for lack of memory works at once when there is some.
        const auto insist = [&](auto&& operation) { return attempt(operation) || operation(); };
        const auto setOptions = [&] {
            return core->environment(RETRO_ENVIRONMENT_SET_VARIABLES, options.data());
        };
        const auto hasLast = [&] {
            retro_variable variable = {lastKey, nullptr};
            return core->environment(RETRO_ENVIRONMENT_GET_VARIABLE, &variable);
        };
        const auto setDirectories = [&] {
            instance.setDirectories(directory, directory);
            return true;
        };
        const auto end = [&] {
            instance.persistSram();
            instance.unload();
            return true;
        };
        EXPECT_TRUE(attempt(setDirectories));
        EXPECT_FALSE(attempt([&] { return instance.loadCore(directory); }));
        ASSERT_TRUE(insist([&] { return instance.loadCore(core.path); }));
        const bool taken = armed(setOptions);
        EXPECT_EQ(taken, hasLast());
        setOptions();
        EXPECT_TRUE(hasLast());
        EXPECT_FALSE(attempt([&] { return instance.loadGame(missing); }));
        ASSERT_TRUE(insist([&] { return instance.loadGame(longGame); }));
        EXPECT_TRUE(insist([&] { return instance.saveState(state); }));
        EXPECT_TRUE(insist([&] { return instance.loadState(state); }));
        core->reject_state = true;
        EXPECT_FALSE(attempt([&] { return instance.loadState(state); }));
        core->reject_state = false;
        EXPECT_TRUE(attempt(end));
        EXPECT_FALSE(instance.loadGame(longGame));
    };
    for (const long following : {0L, 1000000L}) {
        long n = 0;
        do {
            memory::failed = false;
            playOnce(n, following);
        } while (memory::failed && ++n < 10000);
        EXPECT_GT(n, 3);
    }
    qInstallMessageHandler(quiet);
    EXPECT_EQ(
        reasons,
        (std::set<std::string>{
            "", "Out of memory", "Core refused to load this save state.",
            "Could not read ROM: " + utf8(longGame), "Could not read ROM: " + utf8(missing),
            "Could not load core: " + utf8(directory) + " (LoadLibrary/GetProcAddress failed)"}));
}

TEST_F(Allocation, NoneOnTheFramePathOnceWarm) {
    // Leaves SDL its software renderer: a GL driver allocates in the same program as it pleases.
    SDL_SetHint(SDL_HINT_OPENGL_LIBRARY, "none");
    SDL_SetHint(SDL_HINT_EGL_LIBRARY, "none");
    ASSERT_TRUE(SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO)) << SDL_GetError();
    SdlVideo video;
    SdlAudio audio;
    SdlInput input;
    host.video = &video;
    host.audio = &audio;
    host.input = &input;
    std::vector<std::uint16_t> pixels(256 * 224, 0x1234);
    std::array<std::int16_t, 1600> samples = {};
    core.on("retro_run", [&] {
        bool updated = true;
        core->environment(RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE, &updated);
        core->video_refresh(pixels.data(), 256, 224, 512);
        core->audio_sample_batch(samples.data(), samples.size() / 2);
        core->audio_sample(1, 2);
        core->input_state(0, RETRO_DEVICE_JOYPAD, 0, RETRO_DEVICE_ID_JOYPAD_MASK);
    });
    start();
    ASSERT_TRUE(video.create("Probe", 256, 224)) << SDL_GetError();
    ASSERT_TRUE(audio.open(48000)) << SDL_GetError();
    audio.setGain(0.5F);
    const auto play = [&](int frames) {
        for (bool quit = false; frames > 0 && !quit; --frames) {
            video.pumpEvents(quit);
            host.runFrame();
            video.present();
        }
    };
    play(10);
    memory::allocations = 0;
    play(100);
    EXPECT_EQ(memory::allocations, 0);
    video.destroy();
}

} // namespace velmora::test
