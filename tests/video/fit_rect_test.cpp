#include "video/fit_rect.h"

#include <gtest/gtest.h>

#include <limits>

using velmora::FitRect;
using velmora::fitRect;

namespace {

constexpr int most = std::numeric_limits<int>::max();

TEST(FitRect, KeepsTheShapeCentredAndNeverEmpty) {
    struct {
        int srcW, srcH, outW, outH;
        FitRect expected;
    } const cases[] = {
        {320, 240, 1000, 1000, {0, 125, 1000, 750}},
        {256, 224, 1920, 1080, {343, 0, 1234, 1080}},
        {160, 144, 480, 432, {0, 0, 480, 432}},
        {640, 480, 320, 200, {26, 0, 267, 200}},
        {1000, 1, 10, 10, {0, 4, 10, 1}},
        {1, 1000, 10, 10, {4, 0, 1, 10}},
        {0, 240, 100, 50, {0, 0, 100, 50}},
        {320, -1, 100, 50, {0, 0, 100, 50}},
        {320, 240, 0, 50, {0, 0, 1, 50}},
        {320, 240, 100, -7, {0, 0, 100, 1}},
        {1, 1, most, most, {0, 0, most, most}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(fitRect(c.srcW, c.srcH, c.outW, c.outH), c.expected)
            << c.srcW << " by " << c.srcH << " in " << c.outW << " by " << c.outH;
}

} // namespace
