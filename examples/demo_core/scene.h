#pragma once

#include <string_view>

#include "canvas.h"
#include "game.h"

namespace demo {

struct SceneText {
    std::string_view garden; // the name of the garden
    std::int32_t best;       // the high score
};

enum class Season : std::int32_t { spring, autumn, night };

// Draws the whole frame.
void drawScene(Canvas& canvas, const Game& game, Season season, const SceneText& text);

// The parts that stand behind everything that moves.
void drawBackdrop(Canvas& canvas, const Game& game, Season season);

} // namespace demo
