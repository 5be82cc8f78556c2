#pragma once

#include <utility>

namespace velmora {

// Runs `work` and turns whatever it throws into `fallback`: the way in for the public operations
// and the callbacks that C code makes, where nothing may be thrown.
template <class Result, class Work>
Result noThrowOr(Result fallback, Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        return fallback;
    }
}

// The same for work without a result.
template <class Work>
void noThrow(Work&& work) noexcept {
    try {
        std::forward<Work>(work)();
    } catch (...) {
    }
}

} // namespace velmora
