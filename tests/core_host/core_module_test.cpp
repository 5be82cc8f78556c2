#include <array>
#include <cstdlib>
#include <sstream>

#include "core_host/host_test.h"

namespace velmora::test {

using CoreModule = HostTest;

TEST_F(CoreModule, EntersTheCoreInOrderFromLoadToUnload) {
    host.setDirectories(scratch.path(), scratch.path());
    core.on("retro_init", [&] { core->environment(RETRO_ENVIRONMENT_SHUTDOWN, nullptr); });
    int answers = 0;
    for (const char* entry : {"retro_set_environment", "retro_unload_game", "retro_deinit"})
        core.on(entry,
                [&] { answers += core->environment(RETRO_ENVIRONMENT_SET_MESSAGE, nullptr); });

    host.runFrame();
    EXPECT_EQ(core.takeCalls(), Lines{});
    ASSERT_TRUE(host.loadCore(core.path));
    host.runFrame();
    host.reset();
    EXPECT_EQ(core.takeCalls(),
              (Lines{"retro_api_version", "retro_set_environment", "retro_set_video_refresh",
                     "retro_set_audio_sample", "retro_set_audio_sample_batch",
                     "retro_set_input_poll", "retro_set_input_state", "retro_init"}));
    EXPECT_EQ(answers, 1);
    EXPECT_TRUE(host.shutdownRequested);
    ASSERT_TRUE(host.loadGame(game));
    EXPECT_EQ(core.takeCalls(),
              (Lines{"retro_get_system_info", "retro_load_game", "retro_get_system_av_info",
                     "retro_set_controller_port_device", "retro_get_memory_size",
                     "retro_get_memory_data"}));
    EXPECT_EQ(core->port, 0U);
    EXPECT_EQ(core->device, static_cast<unsigned>(RETRO_DEVICE_JOYPAD));
    host.runFrame();
    host.reset();
    EXPECT_EQ(core.takeCalls(), (Lines{"retro_run", "retro_reset"}));
    host.unload();
    EXPECT_EQ(answers, 3);
    EXPECT_FALSE(host.shutdownRequested);
    host.unload();
    host.runFrame();
    EXPECT_FALSE(host.loadGame(game));
    EXPECT_EQ(host.lastError, "No core loaded");
    EXPECT_EQ(core.takeCalls(), (Lines{"retro_get_memory_size", "retro_get_memory_data",
                                       "retro_unload_game", "retro_deinit"}));
}

TEST_F(CoreModule, RefusesAPathThatIsNoModuleAndEndsTheRunningGame) {
    for (const auto& path : {scratch / u8"核.so", scratch.path(), game, std::filesystem::path()}) {
        start();
        core.takeCalls();
        EXPECT_FALSE(host.loadCore(path));
        EXPECT_EQ(host.lastError,
                  "Could not load core: " + utf8(path) + " (LoadLibrary/GetProcAddress failed)");
        EXPECT_EQ(core.takeCalls(), (Lines{"retro_get_memory_size", "retro_get_memory_data",
                                           "retro_unload_game", "retro_deinit"}));
    }
}

TEST_F(CoreModule, NamesTheMissingSymbolAndClosesTheModule) {
    std::istringstream symbols("retro_serialize " VELMORA_PROBE_REQUIRED_SYMBOLS);
    for (std::string symbol; symbols >> symbol;) {
        const bool optional = symbol == "retro_serialize";
        for (int turn = 0; turn < 2; ++turn) {
            ProbeCore incomplete("probe_without_" + symbol);
            EXPECT_EQ(incomplete.accesses(), 1U) << symbol << ": still open from the first turn";
            EXPECT_EQ(host.loadCore(incomplete.path), optional);
            EXPECT_EQ(host.lastError, optional ? "" : "Missing symbol: " + symbol);
            EXPECT_EQ(incomplete.takeCalls().empty(), !optional) << symbol;
            if (optional)
                host.unload();
        }
    }
}

TEST_F(CoreModule, RefusesAnotherApiVersion) {
    core->api_version = 2;
    EXPECT_FALSE(host.loadCore(core.path));
    EXPECT_EQ(host.lastError, "Unsupported libretro API version");
    EXPECT_EQ(core.takeCalls(), Lines{"retro_api_version"});
}

TEST_F(CoreModule, TakesABareNameFromTheCurrentDirectoryOnly) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.path());
    for (const char* searchable : {"libc.so.6", "kernel32.dll"}) {
        EXPECT_FALSE(host.loadCore(searchable));
        EXPECT_TRUE(host.lastError.starts_with("Could not load core: ")) << host.lastError;
    }
    const auto bare = core.path.filename();
    std::filesystem::copy_file(ProbeCore::pathOf("probe_without_retro_run"), bare);
    EXPECT_FALSE(host.loadCore(bare));
    EXPECT_EQ(host.lastError, "Missing symbol: retro_run");
    std::filesystem::current_path(before);
}

TEST_F(CoreModule, WaitsForNoPipe) {
    const auto pipe = scratch / "pipe";
    if (std::system(("mkfifo " + pipe.string()).c_str()) != 0 || !std::filesystem::is_fifo(pipe))
        GTEST_SKIP() << "no pipe could be made";
    EXPECT_FALSE(host.loadCore(pipe));
    start();
    EXPECT_FALSE(host.loadState(pipe));
    host.unload();
    ASSERT_TRUE(host.loadCore(core.path));
    EXPECT_FALSE(host.loadGame(pipe));
}

TEST_F(CoreModule, OpensCoreAndGameUnderForeignNames) {
    const auto directory = scratch / std::filesystem::path(u8"ядро 核 é");
    std::filesystem::create_directory(directory);
    const auto foreign = directory / (u8"プローブ" + core.path.extension().u8string());
    std::filesystem::copy_file(core.path, foreign);
    std::filesystem::rename(game, directory / u8"игра.bin");
    EXPECT_TRUE(host.loadCore(foreign)) << host.lastError;
    EXPECT_TRUE(host.loadGame(directory / u8"игра.bin")) << host.lastError;
    EXPECT_TRUE(host.saveState(directory / u8"セーブ.state")) << host.lastError;
    EXPECT_EQ(readFile(directory / u8"セーブ.state").size(), 64U);
    EXPECT_TRUE(host.loadState(directory / u8"セーブ.state")) << host.lastError;
}

TEST_F(CoreModule, TakesAPathThatIsNoText) {
#ifdef _WIN32
    const std::filesystem::path odd(L"odd \xd800");
    const std::string shown = "odd ?";
#else
    const std::filesystem::path odd("odd \xff");
    const std::string shown = "odd \uFFFD";
#endif
    EXPECT_FALSE(host.loadCore(odd));
    EXPECT_EQ(host.lastError,
              "Could not load core: " + shown + " (LoadLibrary/GetProcAddress failed)");
    start();
    EXPECT_FALSE(host.loadGame(odd));
    EXPECT_EQ(host.lastError, "Could not read ROM: " + shown);
    // Wine has no such names where this system's files are in UTF-8.
    if (std::ofstream(scratch / odd)) {
        EXPECT_TRUE(host.saveState(scratch / odd)) << host.lastError;
        EXPECT_EQ(readFile(scratch / odd).size(), 64U);
        EXPECT_TRUE(host.loadState(scratch / odd)) << host.lastError;
    }
}

TEST_F(CoreModule, ServesTheInstanceThatLoadedLast) {
    LibretroHost other;
    host.setDirectories("first", "");
    other.setDirectories("second", "");
    const auto directory = [&] {
        const char* text = nullptr;
        core->environment(RETRO_ENVIRONMENT_GET_SYSTEM_DIRECTORY, &text);
        return std::string(text ? text : "nobody");
    };
    ASSERT_TRUE(host.loadCore(core.path));
    EXPECT_EQ(directory(), "first");
    ASSERT_TRUE(other.loadCore(core.path));
    EXPECT_EQ(directory(), "second");
    host.unload();
    LibretroHost().unload();
    EXPECT_EQ(directory(), "second");
    other.unload();
    EXPECT_EQ(directory(), "nobody");
}

TEST_F(CoreModule, DropsWhatHasNoOutputOrNoInstance) {
    const auto useEverything = [&] {
        const std::array<std::int16_t, 4> samples = {};
        core->video_refresh(samples.data(), 2, 2, 4);
        core->video_refresh(RETRO_HW_FRAME_BUFFER_VALID, 2, 2, 4);
        core->video_refresh(nullptr, 0, 0, 0);
        core->audio_sample(1, 2);
        EXPECT_EQ(core->audio_sample_batch(samples.data(), 2), 2U);
        EXPECT_EQ(core->audio_sample_batch(nullptr, 512), 512U);
        core->input_poll();
        EXPECT_EQ(core->input_state(0, RETRO_DEVICE_JOYPAD, 0, 0), 0);
    };
    core.on("retro_run", useEverything);
    start();
    host.runFrame();
    host.unload();
    useEverything();
    EXPECT_FALSE(core->environment(RETRO_ENVIRONMENT_SET_MESSAGE, nullptr));
}

TEST_F(CoreModule, LogsEachLineOnce) {
    ASSERT_TRUE(host.loadCore(core.path));
    retro_log_callback log = {};
    ASSERT_TRUE(core->environment(RETRO_ENVIRONMENT_GET_LOG_INTERFACE, &log));
    const LogCapture capture;
    testing::internal::CaptureStderr();
    const std::string longText(2000, 'x');
    log.log(RETRO_LOG_ERROR, "%s %d\n", "\"é\"", 7);
    log.log(RETRO_LOG_DEBUG, "%s", longText.c_str());
    log.log(RETRO_LOG_INFO, nullptr);
    log.log(RETRO_LOG_INFO, "%s", "");
    EXPECT_EQ(LogCapture::lines,
              (Lines{"I [libretro] \"é\" 7\n", "I [libretro] " + std::string(1023, 'x'),
                     "I [libretro] "}));
#ifndef _WIN32 // where it prints what it can of this
    const wchar_t noCharacter[] = {static_cast<wchar_t>(0xd800), 0};
    log.log(RETRO_LOG_WARN, "unprintable: %ls", noCharacter);
    EXPECT_EQ(LogCapture::lines.back(), "I [libretro] unprintable: %ls");
#endif
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "where Qt's log goes by itself";
}

TEST_F(CoreModule, AThrowIsTheFalseOfItsEntryPoint) {
    const auto state = scratch / "state";
    writeFile(state, std::string(10, 's'));
    const auto fault = [] { throw std::runtime_error("core fault"); };
    start();
    for (const char* entry : {"retro_run", "retro_reset", "retro_serialize", "retro_unserialize",
                              "retro_load_game", "retro_unload_game", "retro_deinit"})
        core.on(entry, fault);
    host.runFrame();
    host.reset();
    EXPECT_FALSE(host.saveState(state));
    EXPECT_EQ(host.lastError, "Core refused to serialize state.");
    core.takeCalls();
    EXPECT_FALSE(host.loadState(state));
    EXPECT_EQ(host.lastError, "Core refused to load this save state.");
    EXPECT_EQ(core.takeCalls(),
              (Lines{"retro_serialize_size", "retro_unserialize", "retro_unserialize"}));
    ASSERT_TRUE(host.loadCore(core.path));
    EXPECT_FALSE(host.loadGame(game));
    EXPECT_EQ(host.lastError, "Core rejected ROM: " + utf8(game));
}

TEST_F(CoreModule, AThrowWhileItStartsIsToldAndNothingIsLeftOfIt) {
    const std::pair<std::function<void()>, const char*> faults[] = {
        {[] { throw std::runtime_error("core fault"); }, "Unexpected failure: core fault"},
        {[] { throw 1; }, "Unexpected failure"}};
    for (const auto& [fault, text] : faults) {
        core.on("retro_init", fault);
        EXPECT_FALSE(host.loadCore(core.path));
        EXPECT_EQ(host.lastError, text);
        EXPECT_EQ(core.takeCalls().back(), "retro_init") << "what did not start is not ended";
        EXPECT_FALSE(core->environment(RETRO_ENVIRONMENT_SET_MESSAGE, nullptr));
    }
}

// Threads of its own may still run in it.
TEST_F(CoreModule, ThatThrewStaysMapped) {
    for (const bool throws : {false, true}) {
        {
            ProbeCore victim("probe_without_retro_serialize");
            ASSERT_TRUE(host.loadCore(victim.path));
            if (throws)
                victim.on("retro_load_game", [] { throw 1; });
            EXPECT_EQ(host.loadGame(game), !throws);
            host.unload();
        }
        const ProbeCore again("probe_without_retro_serialize");
        EXPECT_EQ(again.accesses(), throws ? 2U : 1U);
    }
}

} // namespace velmora::test
