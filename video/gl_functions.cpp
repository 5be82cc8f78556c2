#include "video/gl_functions.h"

#include <SDL3/SDL_video.h>

namespace velmora {

SdlVideo::GlFunctions SdlVideo::gl;

bool SdlVideo::loadGlFunctions() {
#define VELMORA_GL_RESOLVE(name)                                                                   \
    gl.name = reinterpret_cast<decltype(gl.name)>(SDL_GL_GetProcAddress(#name));
    VELMORA_GL_FUNCTIONS(VELMORA_GL_RESOLVE)
#undef VELMORA_GL_RESOLVE
    // A driver that has framebuffer objects has all that belongs to them: these stand for the rest.
    return gl.glGenFramebuffers && gl.glBindFramebuffer && gl.glGenTextures && gl.glTexImage2D &&
           gl.glBlitFramebuffer;
}

} // namespace velmora
