#pragma once

// The prototypes are only asked for their types. Nothing links to GL.
#define GL_GLEXT_PROTOTYPES
#include <SDL3/SDL_opengl.h>

#include <velmora/sdl_video.h>

// Every GL entry point of the table, in the order in which they are resolved. The last one only
// asks what a core left.
#define VELMORA_GL_FUNCTIONS(X)                                                                    \
    X(glGenFramebuffers)                                                                           \
    X(glDeleteFramebuffers)                                                                        \
    X(glBindFramebuffer)                                                                           \
    X(glFramebufferTexture2D)                                                                      \
    X(glGenTextures)                                                                               \
    X(glDeleteTextures)                                                                            \
    X(glBindTexture)                                                                               \
    X(glTexImage2D)                                                                                \
    X(glTexParameteri)                                                                             \
    X(glGenRenderbuffers)                                                                          \
    X(glDeleteRenderbuffers)                                                                       \
    X(glBindRenderbuffer)                                                                          \
    X(glRenderbufferStorage)                                                                       \
    X(glFramebufferRenderbuffer)                                                                   \
    X(glBlitFramebuffer)                                                                           \
    X(glViewport)                                                                                  \
    X(glReadPixels)                                                                                \
    X(glPixelStorei)                                                                               \
    X(glClear)                                                                                     \
    X(glClearColor)                                                                                \
    X(glGetIntegerv)

namespace velmora {

// The entry points by their GL names, null until resolved. They hold for the context that was
// current when `loadGlFunctions` ran last.
struct SdlVideo::GlFunctions {
#define VELMORA_GL_MEMBER(name) decltype(&::name) name = nullptr;
    VELMORA_GL_FUNCTIONS(VELMORA_GL_MEMBER)
#undef VELMORA_GL_MEMBER
};

// Gives a GL object back with one of the glDelete functions and forgets its name. With a null
// function, for a context that is out of reach, it is only forgotten.
inline void deleteGlName(decltype(&::glDeleteTextures) deleteNames, unsigned int& name) {
    if (name != 0 && deleteNames)
        deleteNames(1, &name);
    name = 0;
}

} // namespace velmora
