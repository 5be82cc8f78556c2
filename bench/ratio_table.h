#pragma once

#include <functional>
#include <string>

// What a run is judged by: two sides play in turn within it, and CPU time is compared, so that
// whatever else the machine does falls on both sides or on none. No number of it is ever compared
// with another machine's.
namespace velmora::bench {

// Whose CPU time counts: that of the calling thread, or that of every thread, for work that SDL and
// the driver share out.
enum class Clock { Thread, Process };

struct Side {
    std::function<void()> step;
    // Not measured: puts in place what the other side leaves otherwise.
    std::function<void()> enter = [] {};
};

struct Row {
    std::string what;
    std::string against;
    Clock clock = Clock::Thread;
    // The largest ratio that is as it should be; one above is remarked upon.
    double bound = 0;
};

// Prints a Markdown table, a row as soon as it is measured.
class RatioTable {
public:
    // Rows without `filter` in their names are left out.
    explicit RatioTable(std::string filter);

    // The time of one side over the other's.
    void ratio(const Row& row, const Side& measured, const Side& against) const;

    // What one side costs beyond the other, for each of `count` things that a step does.
    void surplus(const Row& row, int count, const Side& measured, const Side& against) const;

private:
    bool wants(const Row& row) const;

    std::string filter;
};

// Each measures one subject and throws std::runtime_error where something is missing for it.
void measureConversion(const RatioTable& table);
void measureFrames(const RatioTable& table);
void measureSession(const RatioTable& table);
void measureBindings(const RatioTable& table);
void measurePresent(const RatioTable& table);
void measureStates(const RatioTable& table);

} // namespace velmora::bench
