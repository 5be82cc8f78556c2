#pragma once

#include <cstdint>

namespace player {

// Spaces passes evenly in time. A display that waits for its own refresh has then spent part or all
// of the time already, so nothing waits twice.
class Pacer {
public:
    // Sleeps until the next pass is due, `rate` passes a second. What cannot be made up for within
    // a few passes, such as a dragged window or a suspended machine, is given up.
    void wait(double rate);

    // More than a whole pass is missing: better to leave out a picture than to slow down the game.
    bool behind() const;

private:
    std::uint64_t due = 0;    // nanoseconds of SDL's clock
    std::uint64_t period = 0; // of the latest pass
};

} // namespace player
