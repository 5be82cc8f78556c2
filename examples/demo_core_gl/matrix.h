#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace demo {

// Columns after one another, as OpenGL reads them.
using Matrix = std::array<float, 16>;

inline Matrix multiply(const Matrix& a, const Matrix& b) {
    Matrix product{};
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 4; ++row)
            for (std::size_t i = 0; i < 4; ++i)
                product[column * 4 + row] += a[i * 4 + row] * b[column * 4 + i];
    return product;
}

inline Matrix scaling(float x, float y, float z) {
    return {x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1};
}

inline Matrix moving(float x, float y, float z) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
}

inline Matrix turningAboutX(float angle) {
    const float c = std::cos(angle), s = std::sin(angle);
    return {1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1};
}

inline Matrix turningAboutY(float angle) {
    const float c = std::cos(angle), s = std::sin(angle);
    return {c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1};
}

// Looks along negative z; zoom is the height of the picture one unit away, over 2, inverted.
inline Matrix perspective(float aspect, float zoom, float nearest, float farthest) {
    const float depth = nearest - farthest;
    return {zoom / aspect,
            0,
            0,
            0,
            0,
            zoom,
            0,
            0,
            0,
            0,
            (farthest + nearest) / depth,
            -1,
            0,
            0,
            2 * farthest * nearest / depth,
            0};
}

} // namespace demo
