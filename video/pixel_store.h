#pragma once

#include <array>

#include "video/gl_functions.h"

namespace velmora {

// For as long as it lives, GL takes or gives rows of pixels exactly as they lie in our memory. What
// a core left in the pixel store would have it read or write beyond, so it is put aside; the core
// may count on it and gets it back.
class SdlVideo::TightRows {
public:
    enum class Direction { toGl, fromGl };

    explicit TightRows(Direction direction);
    ~TightRows();
    TightRows(const TightRows&) = delete;
    TightRows& operator=(const TightRows&) = delete;

private:
    struct Value {
        GLenum name;
        int ours;
        int theCores;
    };

    std::array<Value, 4> values;
};

} // namespace velmora
