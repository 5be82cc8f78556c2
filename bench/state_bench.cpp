// A state's way to disk and back against the core's own copying plus a plain write or read.
#include <QFile>

#include <benchmark/benchmark.h>

#include <vector>

#include "bare_core.h"
#include "ratio_table.h"
#include "session.h"

namespace velmora::bench {
namespace {

std::string workloadOf(const benchmark::State& state) {
    return "bytes=" + std::to_string(state.range(0));
}

template <class Transfer>
void hostState(benchmark::State& state, Transfer transfer) {
    const test::ScratchDirectory scratch;
    const std::filesystem::path file = scratch / "game.state";
    LibretroHost host;
    if (!host.loadCore(VELMORA_BENCH_CORE) ||
        !host.loadGame(workloadFile(scratch, workloadOf(state))) || !host.saveState(file)) {
        state.SkipWithError(host.lastError.c_str());
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(transfer(host, file));
}

template <class Transfer>
void bareState(benchmark::State& state, Transfer transfer) {
    const test::ScratchDirectory scratch;
    const BareCore core(VELMORA_BENCH_CORE, scratch.path(),
                        workloadFile(scratch, workloadOf(state)));
    QFile file(QString::fromStdString((scratch / "bare.state").string()));
    for (auto _ : state)
        transfer(core, file);
}

void bareSave(const BareCore& core, QFile& file) {
    std::vector<std::uint8_t> bytes(core.stateSize());
    core.serialize(bytes.data(), bytes.size());
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    file.close();
}

void bareLoad(const BareCore& core, QFile& file) {
    if (!file.exists())
        bareSave(core, file);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    file.close();
    core.unserialize(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void registerSize(long size) {
    const auto save = [](LibretroHost& host, const auto& file) { return host.saveState(file); };
    const auto load = [](LibretroHost& host, const auto& file) { return host.loadState(file); };
    const std::string bytes = std::to_string(size);
    benchmark::RegisterBenchmark("save_state", hostState<decltype(save)>, save)->Arg(size);
    benchmark::RegisterBenchmark("load_state", hostState<decltype(load)>, load)->Arg(size);
    benchmark::RegisterBenchmark("bare_save", bareState<decltype(&bareSave)>, &bareSave)->Arg(size);
    benchmark::RegisterBenchmark("bare_load", bareState<decltype(&bareLoad)>, &bareLoad)->Arg(size);
    addRatio({"saveState against a bare write, " + bytes + " bytes", "save_state/" + bytes,
              "bare_save/" + bytes, Aim::CostAtMost, 1.1});
    addRatio({"loadState against a bare read, " + bytes + " bytes", "load_state/" + bytes,
              "bare_load/" + bytes, Aim::CostAtMost, 1.1});
}

[[maybe_unused]] const bool registered = [] {
    registerSize(32 * 1024);
    registerSize(16 * 1024 * 1024);
    return true;
}();

} // namespace
} // namespace velmora::bench
