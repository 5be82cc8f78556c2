// What a frame costs in the host beyond what it costs in the core.
#include <benchmark/benchmark.h>

#include "bare_core.h"
#include "ratio_table.h"
#include "session.h"

namespace velmora::bench {
namespace {

constexpr long callbacks = 1000;

// No outputs: the thunks and the lock alone.
void hostFrame(benchmark::State& state, const std::string& workload) {
    const test::ScratchDirectory scratch;
    LibretroHost host;
    if (!host.loadCore(VELMORA_BENCH_CORE) || !host.loadGame(workloadFile(scratch, workload))) {
        state.SkipWithError(host.lastError.c_str());
        return;
    }
    for (auto _ : state)
        host.runFrame();
}

void bareFrame(benchmark::State& state, const std::string& workload) {
    const test::ScratchDirectory scratch;
    const BareCore core(VELMORA_BENCH_CORE, scratch.path(), workloadFile(scratch, workload));
    if (!core.running()) {
        state.SkipWithError("the bench core does not start");
        return;
    }
    for (auto _ : state)
        core.run();
}

// Without outputs, the host alone. With them, also what SDL does with a picture and its sound.
void hostGame(benchmark::State& state, bool outputs) {
    Session session(VELMORA_NES_CORE, VELMORA_NES_GAME);
    if (!session.running) {
        state.SkipWithError(session.host.lastError.c_str());
        return;
    }
    if (!outputs) {
        session.host.video = nullptr;
        session.host.audio = nullptr;
        session.host.input = nullptr;
    }
    for (auto _ : state)
        session.host.runFrame();
}

void bareGame(benchmark::State& state) {
    const test::ScratchDirectory scratch;
    const BareCore core(VELMORA_NES_CORE, scratch.path(), VELMORA_NES_GAME);
    if (!core.running()) {
        state.SkipWithError("no NES core or no game for it");
        return;
    }
    for (auto _ : state)
        core.run();
}

void registerWorkload(const std::string& name, const std::string& workload, double count) {
    benchmark::RegisterBenchmark(("host_" + name).c_str(), hostFrame, workload);
    benchmark::RegisterBenchmark(("bare_" + name).c_str(), bareFrame, workload);
    addRatio(
        {"host's own cost, " + name, "host_" + name, "bare_" + name, Aim::NanosecondsEach, count});
}

[[maybe_unused]] const bool registered = [] {
    const std::string times = std::to_string(callbacks);
    registerWorkload("empty frame", "", 1);
    registerWorkload("video callback", "video=" + times, callbacks);
    registerWorkload("audio callback", "audio=" + times, callbacks);
    registerWorkload("poll callback", "poll=" + times, callbacks);
    registerWorkload("state callback", "state=" + times, callbacks);

    benchmark::RegisterBenchmark("bare_nes_game", bareGame);
    benchmark::RegisterBenchmark("host_nes_game", hostGame, false);
    benchmark::RegisterBenchmark("host_nes_game_outputs", hostGame, true);
    addRatio({"NES game, against the bare loop", "host_nes_game", "bare_nes_game", Aim::CostAtMost,
              1.03});
    addRatio({"picture, sound and input of the NES game, a frame", "host_nes_game_outputs",
              "host_nes_game", Aim::NanosecondsEach, 1});
    return true;
}();

} // namespace
} // namespace velmora::bench
