#pragma once

#include <cstddef>
#include <vector>

namespace demo {

struct Vertex {
    float x, y, z;
    float red, green, blue;
    float s, t;
};

// A run of triangles in the list of all vertices.
struct Part {
    int first = 0;
    int count = 0;
};

struct Geometry {
    std::vector<Vertex> vertices;
    // In clip coordinates.
    Part backdrop, nearArea, farArea, stencilMask, stencilArea, markers;
    // In the coordinates of the turning shape, which reaches from -1 to 1.
    Part crossedSheets;
};

Geometry buildGeometry(unsigned width, unsigned height);

// The picture on the sheets, in RGBA, rows from bottom to top: a letter F and an arrow that points
// up.
inline constexpr std::size_t pictureSize = 16;
std::vector<unsigned char> buildPicture();

} // namespace demo
