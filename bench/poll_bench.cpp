// An input poll over settings stores of several sizes, against the store reads that it cannot
// avoid.
#include <QSettings>

#include <benchmark/benchmark.h>

#include <optional>

#include <velmora/input_bindings.h>
#include <velmora/sdl_input.h>
#include <velmora/settings_keys.h>

#include "ratio_table.h"

namespace velmora::bench {
namespace {

void fillStore(long keys) {
    QSettings store(settingskeys::org(), settingskeys::app());
    store.clear();
    for (long i = 0; i < keys; ++i)
        store.setValue(QStringLiteral("other/group%1/key%2").arg(i % 7).arg(i),
                       QStringLiteral("value"));
}

// With `kept`, as in a frontend that keeps an object on the store for the whole session.
void poll(benchmark::State& state, bool kept) {
    fillStore(state.range(0));
    std::optional<QSettings> living;
    if (kept)
        living.emplace(settingskeys::org(), settingskeys::app());
    const InputBindings bindings;
    SdlInput input;
    input.systemId = "snes";
    for (auto _ : state)
        input.poll();
}

void sixteenReads(benchmark::State& state) {
    fillStore(state.range(0));
    const QSettings living(settingskeys::org(), settingskeys::app());
    const QString key = QStringLiteral("controls/keyboard/snes/8");
    for (auto _ : state) {
        for (int i = 0; i < 16; ++i) {
            const QSettings fresh(settingskeys::org(), settingskeys::app());
            benchmark::DoNotOptimize(fresh.value(key));
        }
    }
}

[[maybe_unused]] const bool registered = [] {
    for (const long keys : {0L, 20L, 500L}) {
        benchmark::RegisterBenchmark("poll", poll, false)->Arg(keys);
        benchmark::RegisterBenchmark("poll_kept", poll, true)->Arg(keys);
        benchmark::RegisterBenchmark("sixteen_reads", sixteenReads)->Arg(keys);
        const std::string size = std::to_string(keys);
        addRatio({"poll against sixteen bare reads, a store of " + size, "poll_kept/" + size,
                  "sixteen_reads/" + size, Aim::CostAtMost, 1.1});
    }
    addRatio(
        {"poll, a store of 500 against one of 20", "poll/500", "poll/20", Aim::CostAtMost, 1.3});
    return true;
}();

} // namespace
} // namespace velmora::bench
