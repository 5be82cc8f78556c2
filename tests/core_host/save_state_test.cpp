#include <algorithm>
#include <span>

#include "core_host/host_test.h"

namespace velmora::test {

class SaveState : public HostTest {
protected:
    void SetUp() override { start(); }

    // A core that takes states of one size only; every offer is kept.
    void acceptOnly(std::size_t size) {
        core.on("retro_unserialize", [this, size] {
            const auto* state = static_cast<const char*>(core->to_unserialize);
            offers.emplace_back(state, core->serialized_size);
            core->reject_state = core->serialized_size != size;
        });
    }

    const std::filesystem::path file = scratch / "new" / "game.state";
    const std::string quoted = '"' + utf8(file) + '"';
    const LogCapture log;
    Lines offers;
};

TEST_F(SaveState, RoundTrips) {
    core.on("retro_serialize", [&] {
        const std::span state(static_cast<char*>(core->to_serialize), core->serialized_size);
        EXPECT_EQ(std::ranges::count(state, '\0'), 64);
        std::ranges::fill(state, 'S');
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
    const std::string padded = state + std::string(10, '\0');
    const std::string cut = state.substr(0, 10);
    constexpr std::size_t never = 0;
    const struct {
        std::size_t coreSize;
        std::size_t accepted;
        Lines offers;
    } rows[] = {
        {20, never, {state}},      {30, 20, {state}},
        {30, 30, {state, padded}}, {30, never, {state, padded}},
        {10, 10, {state, cut}},    {10, never, {state, cut}},
        {0, never, {state}},       {std::size_t{1} << 40, never, {state}},
    };
    ASSERT_TRUE(host.saveState(file));
    writeFile(file, state);
    for (const auto& row : rows) {
        const bool taken = row.accepted != never;
        const auto line = taken ? "I Loaded state " + quoted + " bytes 20"
                                : "W Save state rejected " + quoted + " file 20 core " +
                                      std::to_string(row.coreSize);
        LogCapture::lines.clear();
        offers.clear();
        host.lastError.clear();
        core->state_size = row.coreSize;
        acceptOnly(row.accepted);
        EXPECT_EQ(host.loadState(file), taken) << row.coreSize;
        EXPECT_EQ(offers, row.offers) << row.coreSize;
        EXPECT_EQ(LogCapture::lines, Lines{line});
        EXPECT_EQ(host.lastError, taken ? "" : "Core refused to load this save state.");
    }
}

TEST_F(SaveState, TellsWhyNothingWasSaved) {
    ASSERT_TRUE(host.saveState(file));
    LogCapture::lines.clear();
    const auto expect = [&](const std::filesystem::path& path, const char* reason) {
        EXPECT_FALSE(host.saveState(path));
        EXPECT_EQ(host.lastError, reason);
        EXPECT_EQ(LogCapture::lines, Lines{});
        EXPECT_EQ(readFile(file).size(), 64U) << "the state of before is kept";
    };
    core->state_size = 0;
    expect(file, "Save state size is zero.");
    core->reject_state = true;
    for (const std::size_t absurd : {SIZE_MAX, (std::size_t{4} << 30) + 1}) {
        core->state_size = absurd;
        expect(file, "Out of memory");
    }
    core->state_size = 64;
    expect(file, "Core refused to serialize state.");
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
    expect("probe_without_retro_serialize_size", true, false, true);
}

} // namespace velmora::test
