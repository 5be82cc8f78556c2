#pragma once

#include <span>

#include <velmora/play_hud.h>

#include "overlay/hud_layout.h"

struct SDL_Renderer;

namespace velmora {

// Where one element is drawn: `area` is its place on the renderer's target. A canvas that does not
// blend gets every colour opaque.
struct HudCanvas {
    SDL_Renderer* renderer;
    hud_layout::Rect area;
    bool blends;
};

// One thing that stands over the picture. `draw` works in coordinates of the element's own and may
// throw before the first pixel is drawn, never later.
struct HudElement {
    bool (*visible)(const PlayHud& hud);
    hud_layout::Rect (*place)(int canvasWidth, int canvasHeight);
    void (*draw)(const HudCanvas& canvas, const PlayHud& hud);
    // The picture behind it is darkened where the route blends.
    bool dims;
};

// All of them, from bottom to top.
std::span<const HudElement> hudElements();

// Fills a rectangle given in the element's coordinates.
void fillRect(const HudCanvas& canvas, const hud_layout::Rect& rect,
              const hud_layout::Colour& colour);

} // namespace velmora
