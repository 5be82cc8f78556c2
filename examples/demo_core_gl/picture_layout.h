#pragma once

// Where things stand in the picture, so that whoever looks at its pixels can find them. Fractions
// count from the bottom left of the picture, which is upright on any screen.
namespace demo::layout {

struct Area {
    float left, bottom, right, top;
};

struct Ink {
    float red, green, blue;
};

// Squares of this many pixels in the four corners.
inline constexpr float markerPixels = 16;
inline constexpr Ink topLeftMarker{1, 0, 0};
inline constexpr Ink topRightMarker{0, 1, 0};
inline constexpr Ink bottomLeftMarker{0, 0, 1};
inline constexpr Ink bottomRightMarker{1, 1, 0};

inline constexpr Ink skyInk{0.08F, 0.10F, 0.24F};
inline constexpr Ink floorInk{0.16F, 0.36F, 0.44F};

// The nearer area is drawn first: only a depth buffer keeps it in front where the two overlap.
inline constexpr Area nearArea{0.10F, 0.12F, 0.20F, 0.24F};
inline constexpr Area farArea{0.15F, 0.18F, 0.25F, 0.30F};
inline constexpr Ink nearInk{1, 0, 1};
inline constexpr Ink farInk{0, 1, 1};

// White, cut by a stencil to the ellipse that touches its four sides.
inline constexpr Area stencilArea{0.78F, 0.12F, 0.92F, 0.30F};
inline constexpr Ink stencilInk{1, 1, 1};

} // namespace demo::layout
