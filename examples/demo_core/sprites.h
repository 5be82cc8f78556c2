#pragma once

#include <array>
#include <string_view>

#include "canvas.h"

// The pictures of the game, drawn in letters.
namespace demo {

Colour spriteColour(char code);

// The gardener comes in two parts, so that one body walks on several pairs of legs.
Sprite gardenerBody();
enum class Legs { standing, stepLeft, stepRight, jumping };
Sprite gardenerLegs(Legs legs);

// wingsUp matters to the wasp only.
Sprite itemSprite(Kind kind, bool wingsUp);
Sprite smallHeart(bool full);
Sprite flower(std::int32_t stage); // 0 a sprout, 3 in bloom

} // namespace demo
