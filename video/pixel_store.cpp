#include "video/pixel_store.h"

namespace velmora {

SdlVideo::TightRows::TightRows(Direction direction)
    : values(direction == Direction::toGl ? std::array<Value, 4>{{{GL_UNPACK_ALIGNMENT, 1, 4},
                                                                  {GL_UNPACK_ROW_LENGTH, 0, 0},
                                                                  {GL_UNPACK_SKIP_ROWS, 0, 0},
                                                                  {GL_UNPACK_SKIP_PIXELS, 0, 0}}}
                                          : std::array<Value, 4>{{{GL_PACK_ALIGNMENT, 1, 4},
                                                                  {GL_PACK_ROW_LENGTH, 0, 0},
                                                                  {GL_PACK_SKIP_ROWS, 0, 0},
                                                                  {GL_PACK_SKIP_PIXELS, 0, 0}}}) {
    if (!gl.glPixelStorei)
        return;
    for (Value& value : values) {
        if (gl.glGetIntegerv)
            gl.glGetIntegerv(value.name, &value.theCores);
        gl.glPixelStorei(value.name, value.ours);
    }
}

SdlVideo::TightRows::~TightRows() {
    if (!gl.glPixelStorei)
        return;
    for (const Value& value : values)
        gl.glPixelStorei(value.name, value.theCores);
}

} // namespace velmora
