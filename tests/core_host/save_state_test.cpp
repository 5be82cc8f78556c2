#include <cstring>
#include <numeric>

#include "core_host/host_test.h"

namespace velmora::test {

class SaveState : public HostTest {
protected:
    void SetUp() override { start(); }

    // A core that takes states of one size only; every offer is kept.
    void acceptOnly(std::size_t size) {
        core.onUnserialize([this, size](const void* data, std::size_t given) {
            offers.emplace_back(static_cast<const char*>(data), given);
            return given == size;
        });
    }

    const std::filesystem::path file = scratch / "new" / "game.state";
    const std::string quoted = '"' + utf8(file) + '"';
    const LogCapture log;
    Lines offers;
};

TEST_F(SaveState, RoundTrips) {
    core.onSerialize([](void* data, std::size_t size) {
        auto* bytes = static_cast<unsigned char*>(data);
        EXPECT_EQ(std::accumulate(bytes, bytes + size, 0U), 0U);
        std::memset(data, 'S', size);
        return true;
    });
    std::filesystem::create_directory(scratch / "new");
    writeFile(file, std::string(100, 'o'));
    EXPECT_TRUE(host.saveState(file)) << host.lastError;
    EXPECT_EQ(readFile(file), std::string(64, 'S'));
    acceptOnly(64);
    EXPECT_TRUE(host.loadState(file));
    EXPECT_EQ(offers, Lines{readFile(file)});
    EXPECT_EQ(LogCapture::lines, (Lines{"I Saved state " + quoted + " bytes 64",
                                        "I Loaded state " + quoted + " bytes 64"}));
}

TEST_F(SaveState, OffersARefusedFileOnceMoreInTheCoresSize) {
    const std::string state = "0123456789abcdefghij";
    const auto zeros = [](std::size_t count) { return std::string(count, '\0'); };
    constexpr std::size_t never = 0;
    const struct {
        std::size_t coreSize;
        std::size_t accepted;
        Lines offers;
    } rows[] = {
        {20, 20, {state}},
        {20, never, {state}},
        {30, 20, {state}},
        {30, 30, {state, state + zeros(10)}},
        {30, never, {state, state + zeros(10)}},
        {10, 10, {state, state.substr(0, 10)}},
        {10, never, {state, state.substr(0, 10)}},
        {0, never, {state}},
        {SIZE_MAX, never, {state}},
        {std::size_t{1} << 40, never, {state}},
    };
    ASSERT_TRUE(host.saveState(file));
    writeFile(file, state);
    for (const auto& row : rows) {
        LogCapture::lines.clear();
        offers.clear();
        host.lastError.clear();
        core->state_size = row.coreSize;
        acceptOnly(row.accepted);
        EXPECT_EQ(host.loadState(file), row.accepted != never) << row.coreSize;
        EXPECT_EQ(offers, row.offers) << row.coreSize;
        const auto line = row.accepted != never
                              ? "I Loaded state " + quoted + " bytes 20"
                              : "W Save state rejected " + quoted + " file 20 core " +
                                    std::to_string(row.coreSize);
        EXPECT_EQ(LogCapture::lines, Lines{line});
        EXPECT_EQ(host.lastError,
                  row.accepted != never ? "" : "Core refused to load this save state.");
    }
}

TEST_F(SaveState, TellsWhyNothingWasSaved) {
    const auto expect = [&](const std::filesystem::path& path, const char* reason) {
        EXPECT_FALSE(host.saveState(path));
        EXPECT_EQ(host.lastError, reason);
        EXPECT_EQ(LogCapture::lines, Lines{});
    };
    ASSERT_TRUE(host.saveState(file));
    LogCapture::lines.clear();
    core->state_size = 0;
    expect(file, "Save state size is zero.");
    for (const std::size_t absurd : {SIZE_MAX, std::size_t{1} << 63, std::size_t{1} << 40}) {
        core->state_size = absurd;
        expect(file, "Save state size is too large.");
    }
    core->state_size = 64;
    core->reject_state = true;
    expect(file, "Core refused to serialize state.");
    EXPECT_EQ(readFile(file).size(), 64U);
    core->reject_state = false;
    if (std::filesystem::exists("/dev/full"))
        expect("/dev/full", "Could not write save state file.");
    for (const auto& path : {scratch.path(), game / "below a file"}) {
        LogCapture::lines.clear();
        EXPECT_FALSE(host.saveState(path));
        EXPECT_EQ(host.lastError, "Could not write save state file.");
        ASSERT_EQ(LogCapture::lines.size(), 1U);
        EXPECT_EQ(LogCapture::lines[0].find("W Save state write failed \""), 0U);
    }
}

TEST_F(SaveState, TellsWhyNothingWasLoaded) {
    acceptOnly(64);
    writeFile(scratch / "empty", "");
    EXPECT_FALSE(host.loadState(scratch / "empty"));
    EXPECT_EQ(host.lastError, "Could not read save state file.");
    EXPECT_EQ(LogCapture::lines, Lines{});
    for (const auto& path : {file, scratch.path()}) {
        LogCapture::lines.clear();
        EXPECT_FALSE(host.loadState(path));
        EXPECT_EQ(host.lastError, "Save state not found.");
        EXPECT_EQ(LogCapture::lines,
                  Lines{"W Save state missing \"" + path.generic_string() + '"'});
    }
    EXPECT_TRUE(offers.empty());
}

TEST_F(SaveState, NeedsAGameAndTheEntryPoints) {
    writeFile(scratch / "state", "some state");
    const auto expect = [&](const char* name, bool play, bool saves, bool loads) {
        ASSERT_TRUE(host.loadCore(ProbeCore::pathOf(name)));
        ASSERT_TRUE(!play || host.loadGame(game));
        host.lastError.clear();
        EXPECT_EQ(host.saveState(scratch / "saved"), saves) << name;
        EXPECT_EQ(host.lastError, saves ? "" : "This core does not support save states.");
        host.lastError.clear();
        EXPECT_EQ(host.loadState(scratch / "state"), loads) << name;
        EXPECT_EQ(host.lastError, loads ? "" : "This core does not support save states.");
    };
    expect("probe_core", false, false, false);
    expect("probe_without_retro_serialize", true, false, true);
    expect("probe_without_retro_unserialize", true, true, false);

    ProbeCore sizeless("probe_without_retro_serialize_size");
    expect("probe_without_retro_serialize_size", true, false, true);
    sizeless->reject_state = true;
    sizeless.takeCalls();
    EXPECT_FALSE(host.loadState(scratch / "state"));
    EXPECT_EQ(sizeless.takeCalls(), Lines{"retro_unserialize"});
    EXPECT_EQ(LogCapture::lines.back(),
              "W Save state rejected \"" + utf8(scratch / "state") + "\" file 10 core 10");
}

} // namespace velmora::test
