#pragma once

#include <string>

// What a run is judged by: times are compared within the run, never with another machine's.
namespace velmora::bench {

enum class Aim {
    SpeedAtLeast,   // time of `against` over time of `measured`
    CostAtMost,     // time of `measured` over time of `against`
    NanosecondsEach // (time of `measured` - time of `against`) / count; told, without an aim
};

struct Ratio {
    std::string label;
    std::string measured;
    std::string against;
    Aim aim;
    // The bound of a ratio, or the count of NanosecondsEach.
    double value;
};

// Adds a row to the table; a row whose benchmarks did not run is left out.
void addRatio(Ratio ratio);

// Runs the registered benchmarks and prints the table.
int runAndReport(int argc, char** argv);

} // namespace velmora::bench
