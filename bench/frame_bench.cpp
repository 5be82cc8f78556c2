// What the host itself costs: a frame in which the core does nothing, and a callback.
#include "bare_core.h"
#include "ratio_table.h"

namespace velmora::bench {
namespace {

// No outputs: the thunks and the lock alone.
void measureWorkload(const RatioTable& table, const char* what, const char* workload, int count) {
    const test::ScratchDirectory scratch;
    const auto game = workloadFile(scratch, workload);
    LibretroHost host;
    start(host, VELMORA_BENCH_CORE, game);
    const BareCore core(VELMORA_BENCH_CORE, scratch.path(), game);
    table.surplus({what, "the core's bare loop"}, count, {[&] { host.runFrame(); }},
                  {[&] { core.run(); }});
}

} // namespace

void measureFrames(const RatioTable& table) {
    measureWorkload(table, "an empty frame in the host", "", 1);
    measureWorkload(table, "a callback of the core", "video=250 audio=250 poll=250 state=250",
                    1000);
}

} // namespace velmora::bench
