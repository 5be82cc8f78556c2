#include "geometry.h"

#include <array>
#include <cmath>
#include <string_view>

#include "picture_layout.h"

namespace demo {
namespace {

using layout::Area;
using layout::Ink;

constexpr std::array<std::string_view, pictureSize> pictureRows{
    "................", "................", "..#####.....#...", "..#........###..",
    "..#.......#####.", "..#.......#.#.#.", "..#.........#...", "..####......#...",
    "..#.........#...", "..#.........#...", "..#.........#...", "..#.........#...",
    "..#.........#...", "................", "................", "................",
};

// A texel of the blank border: what is not textured takes its colour from the vertex alone.
constexpr float blank = 0.5F / pictureSize;

void addTriangle(Geometry& geometry, const Vertex& a, const Vertex& b, const Vertex& c) {
    geometry.vertices.insert(geometry.vertices.end(), {a, b, c});
}

// Corners: bottom left, bottom right, top right, top left.
void addQuad(Geometry& geometry, const std::array<Vertex, 4>& corners) {
    addTriangle(geometry, corners[0], corners[1], corners[2]);
    addTriangle(geometry, corners[0], corners[2], corners[3]);
}

Vertex flat(float x, float y, float z, const Ink& ink) {
    return {2 * x - 1, 2 * y - 1, z, ink.red, ink.green, ink.blue, blank, blank};
}

void addArea(Geometry& geometry, const Area& area, float z, const Ink& bottom, const Ink& top) {
    addQuad(geometry,
            {flat(area.left, area.bottom, z, bottom), flat(area.right, area.bottom, z, bottom),
             flat(area.right, area.top, z, top), flat(area.left, area.top, z, top)});
}

void addMarkers(Geometry& geometry, unsigned width, unsigned height) {
    const float x = layout::markerPixels / static_cast<float>(width);
    const float y = layout::markerPixels / static_cast<float>(height);
    const auto add = [&](const Area& area, const Ink& ink) {
        addArea(geometry, area, 0, ink, ink);
    };
    add({0, 1 - y, x, 1}, layout::topLeftMarker);
    add({1 - x, 1 - y, 1, 1}, layout::topRightMarker);
    add({0, 0, x, y}, layout::bottomLeftMarker);
    add({1 - x, 0, 1, y}, layout::bottomRightMarker);
}

void addEllipse(Geometry& geometry, const Area& area, const Ink& ink) {
    constexpr int slices = 48;
    const float x = (area.left + area.right) / 2, y = (area.bottom + area.top) / 2;
    const auto rim = [&](int slice) {
        const float angle = static_cast<float>(slice) * 6.2831853F / slices;
        return flat(x + (area.right - x) * std::cos(angle), y + (area.top - y) * std::sin(angle), 0,
                    ink);
    };
    for (int slice = 0; slice < slices; ++slice)
        addTriangle(geometry, flat(x, y, 0, ink), rim(slice), rim(slice + 1));
}

// Two upright sheets that cut each other at the middle.
void addCrossedSheets(Geometry& geometry) {
    addQuad(geometry, {{{-1, -1, 0, 0.4F, 0.5F, 1, 0, 0},
                        {1, -1, 0, 1, 0.9F, 0.3F, 1, 0},
                        {1, 1, 0, 0.4F, 1, 0.5F, 1, 1},
                        {-1, 1, 0, 1, 0.4F, 0.4F, 0, 1}}});
    addQuad(geometry, {{{0, -0.7F, 1, 0.9F, 0.5F, 0.1F, 1, 0},
                        {0, -0.7F, -1, 0.9F, 0.5F, 0.1F, 0, 0},
                        {0, 0.7F, -1, 1, 0.8F, 0.4F, 0, 1},
                        {0, 0.7F, 1, 1, 0.8F, 0.4F, 1, 1}}});
}

} // namespace

Geometry buildGeometry(unsigned width, unsigned height) {
    Geometry geometry;
    const auto part = [&](Part& range, auto add) {
        range.first = static_cast<int>(geometry.vertices.size());
        add();
        range.count = static_cast<int>(geometry.vertices.size()) - range.first;
    };
    const auto area = [&](const Area& place, float z, const Ink& ink) {
        return [&geometry, place, z, ink] { addArea(geometry, place, z, ink, ink); };
    };
    part(geometry.backdrop, [&] {
        addArea(geometry, {0, 0, 1, 1}, 0.99F, layout::floorInk, layout::skyInk);
    });
    part(geometry.nearArea, area(layout::nearArea, -0.5F, layout::nearInk));
    part(geometry.farArea, area(layout::farArea, 0.5F, layout::farInk));
    part(geometry.stencilMask,
         [&] { addEllipse(geometry, layout::stencilArea, layout::stencilInk); });
    part(geometry.stencilArea, area(layout::stencilArea, 0, layout::stencilInk));
    part(geometry.markers, [&] { addMarkers(geometry, width, height); });
    part(geometry.crossedSheets, [&] { addCrossedSheets(geometry); });
    return geometry;
}

std::vector<unsigned char> buildPicture() {
    std::vector<unsigned char> texels;
    for (std::size_t y = 0; y < pictureSize; ++y)
        for (const char code : pictureRows[pictureSize - 1 - y]) {
            const unsigned char ink = code == '#' ? 40 : 255;
            texels.insert(texels.end(), {ink, ink, ink, 255});
        }
    return texels;
}

} // namespace demo
