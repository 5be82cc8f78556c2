#pragma once

#include <array>
#include <cstddef>

#include "video/gl_functions.h"

namespace velmora {

// What the pixel store tells GL of the rows in our memory, on the way to GL and from it.
inline constexpr std::array unpackNames = {GL_UNPACK_ALIGNMENT, GL_UNPACK_ROW_LENGTH,
                                           GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS};
inline constexpr std::array packNames = {GL_PACK_ALIGNMENT, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                         GL_PACK_SKIP_PIXELS};

// Moves pixels with rows that follow each other without a gap. What a core left would have GL read
// or write beyond our memory, so it is put aside; the core may count on it and gets it back.
template <class Transfer>
void moveTightRows(decltype(&::glGetIntegerv) get, decltype(&::glPixelStorei) set,
                   const std::array<int, 4>& names, Transfer&& transfer) {
    std::array<int, 4> left = {4, 0, 0, 0};
    for (std::size_t i = 0; set && i < names.size(); ++i) {
        const auto name = static_cast<GLenum>(names[i]);
        if (get)
            get(name, &left[i]);
        set(name, i == 0 ? 1 : 0);
    }
    transfer();
    for (std::size_t i = 0; set && i < names.size(); ++i)
        set(static_cast<GLenum>(names[i]), left[i]);
}

} // namespace velmora
