#include "core_host/host_test.h"

namespace velmora::test {

class Game : public HostTest {
protected:
    // The record that the core was given by the last loadGame.
    struct Given {
        std::string path;
        std::string bytes;
    };

    void SetUp() override {
        core.on("retro_load_game", [this] {
            const auto* data = static_cast<const char*>(core->game->data);
            given = {core->game->path, data ? std::string(data, core->game->size) : "no data"};
            EXPECT_TRUE(data || core->game->size == 0);
            EXPECT_EQ(core->game->meta, nullptr);
        });
    }

    Given given;
};

TEST_F(Game, ReachesTheCoreTheWayItWants) {
    start();
    EXPECT_EQ(given.path, utf8(game));
    EXPECT_EQ(given.bytes, "the whole game");
    EXPECT_EQ(host.fps, 50.0);
    EXPECT_EQ(host.sampleRate, 48000.0);
    EXPECT_EQ(host.width, 256U);
    EXPECT_EQ(host.height, 224U);

    core->need_fullpath = true;
    core->av_info = {};
    ASSERT_TRUE(host.loadCore(core.path));
    EXPECT_TRUE(host.loadGame("missing\\game.iso"));
    EXPECT_EQ(given.path, "missing/game.iso");
    EXPECT_EQ(given.bytes, "no data");
    EXPECT_EQ(host.fps, 50.0);
    EXPECT_EQ(host.width, 256U);
}

TEST_F(Game, ThatCannotBeReadOrIsRejectedLeavesTheCoreReady) {
    std::filesystem::create_directory(scratch / "directory");
    writeFile(scratch / "huge.bin", "x");
    std::error_code tooLargeHere; // for Windows, whose file of one byte then goes as well
    std::filesystem::resize_file(scratch / "huge.bin", std::uintmax_t{1} << 40, tooLargeHere);
    if (tooLargeHere)
        std::filesystem::remove(scratch / "huge.bin");
    writeFile(scratch / "empty.bin", "");
    host.setDirectories(scratch.path(), scratch.path());
    EXPECT_FALSE(host.loadGame(game));
    EXPECT_EQ(host.lastError, "No core loaded");
    EXPECT_TRUE(core.takeCalls().empty());
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
    EXPECT_EQ(given.path, utf8(scratch / "empty.bin"));
    host.unload();
    EXPECT_FALSE(std::filesystem::exists(scratch / "game.srm"));
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
    const std::pair<const char*, const char*> rows[] = {{"", "12345678"},
                                                        {"abcd", "abcd5678"},
                                                        {"abcdefgh", "abcdefgh"},
                                                        {"abcdefghij", "abcdefgh"}};
    for (const auto& [saved, expected] : rows) {
        host.unload();
        writeFile(file, saved);
        lend("12345678");
        start();
        EXPECT_EQ(memory, expected);
    }
}

TEST_F(BatterySave, IsWrittenOnDemandAndAtEveryEnd) {
    start();
    EXPECT_FALSE(std::filesystem::exists(file));
    host.persistSram();
    EXPECT_EQ(readFile(file), "12345678");
    const auto expectAfter = [&](const char* bytes, const auto& end) {
        memory = bytes;
        host.runFrame();
        host.reset();
        EXPECT_NE(readFile(file), bytes);
        end();
        EXPECT_EQ(readFile(file), bytes);
    };
    expectAfter("unloaded", [&] { host.unload(); });
    start();
    expectAfter("replaced", [&] { host.loadCore(core.path); });
    {
        LibretroHost shortLived;
        shortLived.setDirectories("", saves);
        ASSERT_TRUE(shortLived.loadCore(core.path) && shortLived.loadGame(game));
        memory = "destruct";
    }
    EXPECT_EQ(readFile(file), "destruct");

    start();
    host.setDirectories("", scratch / "elsewhere");
    host.unload();
    EXPECT_EQ(readFile(scratch / "elsewhere" / "game.srm"), "destruct");
}

TEST_F(BatterySave, IsNamedByTheWholeStem) {
    core->need_fullpath = true;
    ASSERT_TRUE(host.loadCore(core.path));
    ASSERT_TRUE(host.loadGame("roms/Some Game.v2.gba"));
    host.unload();
    EXPECT_EQ(readFile(saves / "Some Game.v2.srm"), memory);
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

TEST_F(BatterySave, IsLeftAloneWithoutMemoryOrDirectory) {
    const auto playOnce = [&] {
        start();
        host.unload();
        EXPECT_FALSE(std::filesystem::exists(saves));
    };
    core->save_ram_size = 0;
    playOnce();
    core->save_ram_size = memory.size();
    core->save_ram = nullptr;
    playOnce();
    core->save_ram = memory.data();
    host.setDirectories(saves, "");
    start();
    EXPECT_EQ(core.takeCalls().back(), "retro_set_controller_port_device");
    host.unload();
    EXPECT_FALSE(std::filesystem::exists("game.srm"));
}

} // namespace velmora::test
