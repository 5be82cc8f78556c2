#pragma once

#include <array>
#include <cstdint>

namespace demo {

inline constexpr std::int32_t glyphWidth = 5;
inline constexpr std::int32_t glyphHeight = 7;

// Seven rows, the leftmost pixel in bit 4.
using Glyph = std::array<std::uint8_t, glyphHeight>;

// Lower case shows as upper case; a character that has no glyph shows as a blank.
const Glyph& glyphOf(char character);

} // namespace demo
