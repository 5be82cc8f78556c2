#include "pacer.h"

#include <SDL3/SDL_timer.h>

namespace player {
namespace {

constexpr std::uint64_t latePassesMadeUp = 4;

// Not every core's idea of its own speed can be believed.
std::uint64_t periodOf(double rate) {
    const bool plausible = rate >= 1.0 && rate <= 4000.0;
    return static_cast<std::uint64_t>(SDL_NS_PER_SECOND / (plausible ? rate : 60.0));
}

} // namespace

void Pacer::wait(double rate) {
    const std::uint64_t now = SDL_GetTicksNS();
    const bool first = period == 0;
    period = periodOf(rate);
    due += period;
    if (first || now > due + latePassesMadeUp * period) {
        due = now;
    }
    if (now < due) {
        SDL_DelayPrecise(due - now);
    }
}

bool Pacer::behind() const { return SDL_GetTicksNS() > due + period; }

} // namespace player
