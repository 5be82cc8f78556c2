// The settings page's lists against the store reads they need, and the event filter while idle.
#include <QCoreApplication>
#include <QEvent>
#include <QSettings>

#include <benchmark/benchmark.h>

#include <velmora/input_bindings.h>
#include <velmora/settings_keys.h>

#include "ratio_table.h"

namespace velmora::bench {
namespace {

constexpr int snesRows = 12;
constexpr int specialRows = 10;

void buttons(benchmark::State& state) {
    InputBindings bindings;
    bindings.setSystemId(QStringLiteral("snes"));
    for (auto _ : state)
        benchmark::DoNotOptimize(bindings.buttons());
}

void specials(benchmark::State& state) {
    const InputBindings bindings;
    for (auto _ : state)
        benchmark::DoNotOptimize(bindings.specials());
}

void reads(benchmark::State& state, int rows) {
    const QString key = QStringLiteral("controls/keyboard/snes/8");
    for (auto _ : state) {
        for (int i = 0; i < rows; ++i) {
            const QSettings fresh(settingskeys::org(), settingskeys::app());
            benchmark::DoNotOptimize(fresh.value(key));
        }
    }
}

void sendEvents(benchmark::State& state, bool watched) {
    QObject receiver;
    const std::unique_ptr<InputBindings> bindings(watched ? new InputBindings : nullptr);
    QEvent event(QEvent::User);
    for (auto _ : state)
        QCoreApplication::sendEvent(&receiver, &event);
}

[[maybe_unused]] const bool registered = [] {
    benchmark::RegisterBenchmark("buttons", buttons);
    benchmark::RegisterBenchmark("specials", specials);
    benchmark::RegisterBenchmark("reads_of_buttons", reads, snesRows);
    benchmark::RegisterBenchmark("reads_of_specials", reads, specialRows);
    benchmark::RegisterBenchmark("event_watched", sendEvents, true);
    benchmark::RegisterBenchmark("event_unwatched", sendEvents, false);
    addRatio({"page's buttons against their store reads", "buttons", "reads_of_buttons",
              Aim::CostAtMost, 1.2});
    addRatio({"page's specials against their store reads", "specials", "reads_of_specials",
              Aim::CostAtMost, 1.2});
    addRatio({"idle event filter, an event", "event_watched", "event_unwatched",
              Aim::NanosecondsEach, 1});
    return true;
}();

} // namespace
} // namespace velmora::bench
