#pragma once

#include <algorithm>

#include "video/saturated_int.h"

namespace velmora {

struct FitRect {
    int x;
    int y;
    int w;
    int h;

    constexpr bool operator==(const FitRect&) const = default;
};

// Where a picture of `srcW` by `srcH` square pixels stands in an output of `outW` by `outH`: as
// large as it fits with its shape kept, and centred.
constexpr FitRect fitRect(int srcW, int srcH, int outW, int outH) {
    if (srcW <= 0 || srcH <= 0 || outW <= 0 || outH <= 0)
        return {0, 0, std::max(outW, 1), std::max(outH, 1)};
    const auto srcWidth = static_cast<float>(srcW);
    const auto srcHeight = static_cast<float>(srcH);
    const float scale =
        std::min(static_cast<float>(outH) / srcHeight, static_cast<float>(outW) / srcWidth);
    const int w = std::max(saturatedInt(scale * srcWidth + 0.5F), 1);
    const int h = std::max(saturatedInt(scale * srcHeight + 0.5F), 1);
    return {(outW - w) / 2, (outH - h) / 2, w, h};
}

} // namespace velmora
