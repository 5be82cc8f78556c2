#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

#include "core_host/host_test.h"

namespace velmora::test {

class Game : public HostTest {
protected:
    void SetUp() override {
        core.on("retro_load_game", [this] {
            path = core->game->path;
            bytes.assign(static_cast<const char*>(core->game->data), core->game->size);
            EXPECT_EQ(core->game->meta, nullptr);
        });
    }

    // What the core was given by the last loadGame.
    std::string path;
    std::string bytes;
};

TEST_F(Game, ReachesTheCoreTheWayItWants) {
    start();
    EXPECT_EQ(path, utf8(game));
    EXPECT_EQ(bytes, "the whole game");

    core->need_fullpath = true;
    ASSERT_TRUE(host.loadCore(core.path));
    EXPECT_TRUE(host.loadGame("missing\\game.iso"));
    EXPECT_EQ(path, "missing/game.iso");
    EXPECT_EQ(bytes, "");
}

TEST_F(Game, StaysInMemoryWhileItRuns) {
    const void* given = nullptr;
    core.on("retro_load_game", [&] { given = core->game->data; });
    core.on("retro_run", [&] { bytes.assign(static_cast<const char*>(given), 14); });
    start();
    host.runFrame();
    EXPECT_EQ(bytes, "the whole game");
}

TEST_F(Game, LeavesItsTimingAndSizeAndTheLastErrorBehind) {
    const auto expect = [&](double fps, double rate, unsigned width, unsigned height) {
        EXPECT_EQ(std::tuple(host.fps, host.sampleRate, host.width, host.height),
                  std::tuple(fps, rate, width, height));
        EXPECT_EQ(host.lastError, "No core loaded");
    };
    EXPECT_FALSE(host.loadGame(game));
    expect(60.0, 32768.0, 240, 160);
    start();
    expect(50.0, 48000.0, 256, 224);
    host.unload();
    expect(50.0, 48000.0, 256, 224);
    core->av_info = {};
    start();
    expect(50.0, 48000.0, 256, 224);
}

TEST_F(Game, IsGivenBackWhenTheCoreThrowsAfterTakingIt) {
    host.setDirectories("", scratch.path());
    for (const char* entry : {"retro_get_system_av_info", "retro_get_memory_data"}) {
        ASSERT_TRUE(host.loadCore(core.path));
        core.on(entry, [] { throw std::runtime_error("core fault"); });
        EXPECT_FALSE(host.loadGame(game));
        EXPECT_EQ(host.lastError, "Unexpected failure: core fault");
        EXPECT_EQ(core.takeCalls().back(), "retro_unload_game");
        core.on(entry, [] {});
        host.runFrame();
        EXPECT_EQ(core.takeCalls(), Lines{}) << entry;
    }
}

#ifndef _WIN32
TEST_F(Game, IsReadThroughAnyDescriptorWhichIsGivenBack) {
    close(STDIN_FILENO);
    start();
    EXPECT_EQ(bytes, "the whole game");
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
}
#endif

TEST_F(Game, ThatCannotBeReadOrIsRejectedLeavesTheCoreReady) {
    std::filesystem::create_directory(scratch / "directory");
    writeFile(scratch / "huge.bin", "x");
    std::error_code tooLargeHere; // for Windows, whose file of one byte then goes as well
    std::filesystem::resize_file(scratch / "huge.bin", std::uintmax_t{1} << 40, tooLargeHere);
    if (tooLargeHere)
        std::filesystem::remove(scratch / "huge.bin");
    writeFile(scratch / "empty.bin", "");
    EXPECT_FALSE(host.loadGame(game));
    EXPECT_EQ(host.lastError, "No core loaded");
    ASSERT_TRUE(host.loadCore(core.path));
    for (const char* name : {"missing.bin", "directory", "huge.bin"}) {
        EXPECT_FALSE(host.loadGame(scratch / name));
        EXPECT_EQ(host.lastError, "Could not read ROM: " + utf8(scratch / name));
    }
    core->reject_game = true;
    EXPECT_FALSE(host.loadGame(game));
    EXPECT_EQ(host.lastError, "Core rejected ROM: " + utf8(game));
    core.takeCalls();
    host.runFrame();
    host.persistSram();
    EXPECT_TRUE(core.takeCalls().empty());
    core->reject_game = false;
    EXPECT_TRUE(host.loadGame(scratch / "empty.bin"));
    EXPECT_EQ(path, utf8(scratch / "empty.bin"));
}

class BatterySave : public HostTest {
protected:
    void SetUp() override {
        lend("12345678");
        host.setDirectories("", saves);
    }

    void lend(const std::string& bytes) {
        memory = bytes;
        core->save_ram = memory.data();
        core->save_ram_size = memory.size();
    }

    const std::filesystem::path saves = scratch / "deep" / "saves";
    const std::filesystem::path file = saves / "game.srm";
    std::string memory;
};

TEST_F(BatterySave, FillsTheFrontOfTheMemory) {
    std::filesystem::create_directories(saves);
    const std::pair<const char*, const char*> rows[] = {
        {"", "12345678"}, {"abcd", "abcd5678"}, {"abcdefghij", "abcdefgh"}};
    for (const auto& [saved, expected] : rows) {
        host.unload();
        writeFile(file, saved);
        lend("12345678");
        start();
        EXPECT_EQ(memory, expected);
    }
}

TEST_F(BatterySave, IsWrittenOnDemandAndNotByTheWay) {
    start();
    host.runFrame();
    host.reset();
    EXPECT_FALSE(std::filesystem::exists(file));
    host.persistSram();
    EXPECT_EQ(readFile(file), "12345678");
}

TEST_F(BatterySave, IsWrittenAtEveryEnd) {
    start();
    memory = "unloaded";
    host.unload();
    EXPECT_EQ(readFile(file), "unloaded");
    start();
    memory = "replaced";
    host.loadCore(core.path);
    EXPECT_EQ(readFile(file), "replaced");
    {
        LibretroHost shortLived;
        shortLived.setDirectories("", saves);
        ASSERT_TRUE(shortLived.loadCore(core.path) && shortLived.loadGame(game));
        memory = "destruct";
    }
    EXPECT_EQ(readFile(file), "destruct");
}

TEST_F(BatterySave, BearsTheWholeStemInTheDirectoryOfTheMoment) {
    core->need_fullpath = true;
    ASSERT_TRUE(host.loadCore(core.path));
    ASSERT_TRUE(host.loadGame("roms/Some Game.v2.gba"));
    host.setDirectories("", scratch / "elsewhere");
    host.unload();
    EXPECT_EQ(readFile(scratch / "elsewhere" / "Some Game.v2.srm"), "12345678");
}

TEST_F(BatterySave, FailsInSilence) {
    std::filesystem::create_directories(file / "in the way");
    start();
    EXPECT_EQ(memory, "12345678");
    host.persistSram();
    EXPECT_TRUE(std::filesystem::is_directory(file));
    host.setDirectories("", game / "below a file");
    host.persistSram();
    EXPECT_EQ(readFile(game), "the whole game");
    EXPECT_EQ(host.lastError, "");
}

TEST_F(BatterySave, ThatCouldNotBeReadIsNotWrittenOver) {
    std::filesystem::create_directories(file);
    start();
    std::filesystem::remove(file);
    writeFile(file, "precious");
    host.unload();
    EXPECT_EQ(readFile(file), "precious");
    start();
    EXPECT_EQ(memory, "precious");
    memory = "progress";
    host.unload();
    EXPECT_EQ(readFile(file), "progress");
}

TEST_F(BatterySave, IsReadAsFarAsItGoesIntoMemoryOfAnySize) {
    std::filesystem::create_directories(saves);
    writeFile(file, "abcd");
    core->save_ram_size = SIZE_MAX;
    start();
    EXPECT_EQ(memory, "abcd5678");
    host.unload();
    EXPECT_EQ(readFile(file), "abcd") << "no memory is that large";
}

TEST_F(BatterySave, IsLeftAloneWithoutMemoryOrDirectory) {
    const std::pair<void*, std::size_t> unusable[] = {{memory.data(), 0}, {nullptr, 8}};
    for (const auto& [lent, size] : unusable) {
        core->save_ram = lent;
        core->save_ram_size = size;
        start();
        host.unload();
        EXPECT_FALSE(std::filesystem::exists(saves));
    }
    lend("12345678");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.path());
    host.setDirectories(saves, "");
    start();
    EXPECT_EQ(core.takeCalls().back(), "retro_set_controller_port_device");
    host.unload();
    EXPECT_FALSE(std::filesystem::exists("game.srm"));
    std::filesystem::current_path(before);
}

} // namespace velmora::test
