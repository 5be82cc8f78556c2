#pragma once

#include <limits>

namespace velmora {

// The whole part of `value`; the nearest int for what is beyond int, 0 for NaN.
constexpr int saturatedInt(float value) {
    constexpr float beyond = 2147483648.0F;
    if (value >= beyond)
        return std::numeric_limits<int>::max();
    if (value < -beyond)
        return std::numeric_limits<int>::min();
    return value == value ? static_cast<int>(value) : 0;
}

} // namespace velmora
