#include "ratio_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>

namespace velmora::bench {
namespace {

constexpr std::size_t rounds = 24;

double cpuSeconds(Clock clock) {
    std::timespec now = {};
    clock_gettime(clock == Clock::Process ? CLOCK_PROCESS_CPUTIME_ID : CLOCK_THREAD_CPUTIME_ID,
                  &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// What other threads have used is known to a tick of the kernel.
double shortestTurn(Clock clock) { return clock == Clock::Process ? 0.1 : 0.02; }

// The first step comes before the clock starts: it pays for whatever the other side left in caches
// and drivers.
double turn(const Side& side, Clock clock, long steps) {
    side.enter();
    side.step();
    const double start = cpuSeconds(clock);
    for (long i = 0; i < steps; ++i)
        side.step();
    return cpuSeconds(clock) - start;
}

// As many steps as make a turn; finding out warms everything up.
long stepsOfTurn(const Side& side, Clock clock) {
    long steps = 1;
    while (turn(side, clock, steps) < shortestTurn(clock))
        steps *= 2;
    return steps;
}

// The seconds of a step of each side, the measured one first.
using Round = std::array<double, 2>;
using Rounds = std::array<Round, rounds>;

// Who begins changes from round to round.
Rounds play(const Side& measured, const Side& against, Clock clock) {
    const std::array sides = {&measured, &against};
    const std::array steps = {stepsOfTurn(measured, clock), stepsOfTurn(against, clock)};
    Rounds played = {};
    for (std::size_t turns = 0; turns < 2 * rounds; ++turns) {
        const std::size_t round = turns / 2;
        const std::size_t side = (turns + round) % 2;
        played[round][side] =
            turn(*sides[side], clock, steps[side]) / static_cast<double>(steps[side]);
    }
    return played;
}

struct Quartiles {
    double first;
    double median;
    double third;
};

template <class Value>
Quartiles quartilesOf(const Rounds& played, Value value) {
    std::array<double, rounds> values = {};
    std::transform(played.begin(), played.end(), values.begin(), value);
    std::sort(values.begin(), values.end());
    return {values[rounds / 4], values[rounds / 2], values[rounds * 3 / 4]};
}

std::string ratioText(double ratio) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", ratio);
    return text;
}

std::string timeText(double seconds) {
    const bool tiny = std::abs(seconds) < 1e-6;
    char text[32];
    std::snprintf(text, sizeof text, "%.1f %s", seconds * (tiny ? 1e9 : 1e6), tiny ? "ns" : "µs");
    return text;
}

void print(const Row& row, const std::string& value, const Quartiles& quartiles,
           std::string (*text)(double), const std::string& rest) {
    std::printf("| %s | %s | %s | %s to %s | %s\n", row.what.c_str(), row.against.c_str(),
                value.c_str(), text(quartiles.first).c_str(), text(quartiles.third).c_str(),
                rest.c_str());
    std::fflush(stdout);
}

} // namespace

RatioTable::RatioTable(std::string word) : filter(std::move(word)) {
    std::printf("| What | Against | CPU time | Quartiles | One takes |\n|---|---|---|---|---|\n");
}

bool RatioTable::wants(const Row& row) const {
    return (row.what + " " + row.against).find(filter) != std::string::npos;
}

void RatioTable::ratio(const Row& row, const Side& measured, const Side& against) const {
    if (!wants(row))
        return;
    const Rounds played = play(measured, against, row.clock);
    const auto ratio = quartilesOf(played, [](const Round& r) { return r[0] / r[1]; });
    const auto one = quartilesOf(played, [](const Round& r) { return r[0]; });
    const bool over = row.bound != 0 && ratio.median > row.bound;
    print(row, ratioText(ratio.median), ratio, ratioText,
          timeText(one.median) + " |" + (over ? " over " + ratioText(row.bound) : ""));
}

void RatioTable::surplus(const Row& row, int count, const Side& measured,
                         const Side& against) const {
    if (!wants(row))
        return;
    const auto each = quartilesOf(play(measured, against, row.clock),
                                  [count](const Round& r) { return (r[0] - r[1]) / count; });
    print(row, timeText(each.median) + " more", each, timeText, "|");
}

} // namespace velmora::bench
