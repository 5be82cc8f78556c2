#include <velmora/sdl_video.h>

#include "video/gl_functions.h"
#include "video/pixel_store.h"
#include "video/window_size.h"

namespace velmora {

void SdlVideo::blitRgba(int x, int y, int w, int h, const void* pixels) {
    const bool complete = gl.glGenTextures && gl.glBindTexture && gl.glTexParameteri &&
                          gl.glTexImage2D && gl.glGenFramebuffers && gl.glBindFramebuffer &&
                          gl.glFramebufferTexture2D && gl.glBlitFramebuffer;
    if (!makeCurrent() || !complete)
        return;
    if (!hudTexture)
        gl.glGenTextures(1, &hudTexture);
    if (!hudFbo)
        gl.glGenFramebuffers(1, &hudFbo);

    gl.glBindTexture(GL_TEXTURE_2D, hudTexture);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    moveTightRows(gl.glGetIntegerv, gl.glPixelStorei, unpackNames, [&] {
        gl.glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
    });

    gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, hudFbo);
    gl.glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, hudTexture,
                              0);
    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);

    // The destination runs downward: the surface's rows are top first, GL's bottom first.
    const int top = windowSizeInPixels(window).y - y;
    gl.glBlitFramebuffer(0, 0, w, h, x, top, x + w, top - h, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

} // namespace velmora
