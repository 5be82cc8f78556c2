#include "ratio_table.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace velmora::bench {
namespace {

std::vector<Ratio>& table() {
    static std::vector<Ratio> rows;
    return rows;
}

// Why a benchmark stopped early, empty when it did not; the members' names depend on the version of
// Google Benchmark.
template <class Run>
std::string errorOf(const Run& run) {
    if constexpr (requires { run.error_occurred; })
        return run.error_occurred ? run.error_message : std::string();
    else
        return run.skipped ? run.skip_message : std::string();
}

// Keeps the shortest of a benchmark's repetitions: what disturbs a run only ever makes it longer.
class ShortestTimes : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (const std::string error = errorOf(run); !error.empty())
                std::fprintf(stderr, "%s: %s\n", nameOf(run).c_str(), error.c_str());
            else if (run.run_type == Run::RT_Iteration)
                keep(run);
        }
    }

    bool has(const Ratio& row) const {
        return nanoseconds.contains(row.measured) && nanoseconds.contains(row.against);
    }

    double valueOf(const Ratio& row) const {
        const double measured = nanoseconds.at(row.measured);
        const double against = nanoseconds.at(row.against);
        switch (row.aim) {
        case Aim::SpeedAtLeast:
            return against / measured;
        case Aim::CostAtMost:
            return measured / against;
        case Aim::NanosecondsEach:
            break;
        }
        return (measured - against) / row.value;
    }

    void printTimes() const {
        for (const auto& [name, time] : nanoseconds)
            std::printf("%-48s %14.1f ns\n", name.c_str(), time);
    }

private:
    static std::string nameOf(const Run& run) {
        const std::string& arguments = run.run_name.args;
        return run.run_name.function_name + (arguments.empty() ? "" : "/") + arguments;
    }

    void keep(const Run& run) {
        const double time = run.real_accumulated_time / static_cast<double>(run.iterations) * 1e9;
        const auto [place, fresh] = nanoseconds.try_emplace(nameOf(run), time);
        if (!fresh)
            place->second = std::min(place->second, time);
    }

    std::map<std::string, double> nanoseconds;
};

void printRow(const Ratio& row, double value) {
    if (row.aim == Aim::NanosecondsEach) {
        std::printf("%-62s %9.1f ns\n", row.label.c_str(), value);
        return;
    }
    const bool met = row.aim == Aim::SpeedAtLeast ? value >= row.value : value <= row.value;
    std::printf("%-62s %9.3f  %s %.2f%s\n", row.label.c_str(), value,
                row.aim == Aim::SpeedAtLeast ? "at least" : "at most ", row.value,
                met ? "" : "  MISSED");
}

} // namespace

void addRatio(Ratio ratio) { table().push_back(std::move(ratio)); }

int runAndReport(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    ShortestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    times.printTimes();
    std::printf("\n");
    for (const Ratio& row : table()) {
        if (times.has(row))
            printRow(row, times.valueOf(row));
    }
    return 0;
}

} // namespace velmora::bench
