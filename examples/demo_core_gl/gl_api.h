#pragma once

#include <cstddef>
#include <cstdint>

#include <velmora/libretro.h>

// The part of OpenGL that this core uses, resolved through the frontend and never linked.
namespace demo {

using GLenum = std::uint32_t;
using GLuint = std::uint32_t;
using GLint = std::int32_t;
using GLsizei = std::int32_t;
using GLbitfield = std::uint32_t;
using GLboolean = std::uint8_t;

inline constexpr GLenum glColorBufferBit = 0x4000;
inline constexpr GLenum glDepthBufferBit = 0x0100;
inline constexpr GLenum glStencilBufferBit = 0x0400;
inline constexpr GLenum glTriangles = 0x0004;
inline constexpr GLenum glLess = 0x0201;
inline constexpr GLenum glEqual = 0x0202;
inline constexpr GLenum glAlways = 0x0207;
inline constexpr GLenum glKeep = 0x1E00;
inline constexpr GLenum glReplace = 0x1E01;
inline constexpr GLenum glCullFaceTest = 0x0B44;
inline constexpr GLenum glDepthTest = 0x0B71;
inline constexpr GLenum glStencilTest = 0x0B90;
inline constexpr GLenum glBlending = 0x0BE2;
inline constexpr GLenum glScissorTest = 0x0C11;
inline constexpr GLenum glTexture2D = 0x0DE1;
inline constexpr GLenum glTexture0 = 0x84C0;
inline constexpr GLenum glTextureMagFilter = 0x2800;
inline constexpr GLenum glTextureMinFilter = 0x2801;
inline constexpr GLenum glNearest = 0x2600;
inline constexpr GLenum glUnpackAlignment = 0x0CF5;
inline constexpr GLenum glRgba = 0x1908;
inline constexpr GLenum glUnsignedByte = 0x1401;
inline constexpr GLenum glFloat = 0x1406;
inline constexpr GLenum glVersion = 0x1F02;
inline constexpr GLenum glArrayBuffer = 0x8892;
inline constexpr GLenum glStaticDraw = 0x88E4;
inline constexpr GLenum glFragmentShader = 0x8B30;
inline constexpr GLenum glVertexShader = 0x8B31;
inline constexpr GLenum glCompileStatus = 0x8B81;
inline constexpr GLenum glLinkStatus = 0x8B82;
inline constexpr GLenum glFramebuffer = 0x8D40;

// Result, name without its "gl", arguments.
#define DEMO_GL_FUNCTIONS(X)                                                                       \
    X(void, ActiveTexture, (GLenum))                                                               \
    X(void, AttachShader, (GLuint, GLuint))                                                        \
    X(void, BindAttribLocation, (GLuint, GLuint, const char*))                                     \
    X(void, BindBuffer, (GLenum, GLuint))                                                          \
    X(void, BindFramebuffer, (GLenum, GLuint))                                                     \
    X(void, BindTexture, (GLenum, GLuint))                                                         \
    X(void, BufferData, (GLenum, std::ptrdiff_t, const void*, GLenum))                             \
    X(void, Clear, (GLbitfield))                                                                   \
    X(void, ClearColor, (float, float, float, float))                                              \
    X(void, ClearStencil, (GLint))                                                                 \
    X(void, ColorMask, (GLboolean, GLboolean, GLboolean, GLboolean))                               \
    X(void, CompileShader, (GLuint))                                                               \
    X(GLuint, CreateProgram, ())                                                                   \
    X(GLuint, CreateShader, (GLenum))                                                              \
    X(void, DeleteBuffers, (GLsizei, const GLuint*))                                               \
    X(void, DeleteProgram, (GLuint))                                                               \
    X(void, DeleteShader, (GLuint))                                                                \
    X(void, DeleteTextures, (GLsizei, const GLuint*))                                              \
    X(void, DepthFunc, (GLenum))                                                                   \
    X(void, DepthMask, (GLboolean))                                                                \
    X(void, Disable, (GLenum))                                                                     \
    X(void, DrawArrays, (GLenum, GLint, GLsizei))                                                  \
    X(void, Enable, (GLenum))                                                                      \
    X(void, EnableVertexAttribArray, (GLuint))                                                     \
    X(void, DisableVertexAttribArray, (GLuint))                                                    \
    X(void, GenBuffers, (GLsizei, GLuint*))                                                        \
    X(void, GenTextures, (GLsizei, GLuint*))                                                       \
    X(void, GetProgramInfoLog, (GLuint, GLsizei, GLsizei*, char*))                                 \
    X(void, GetProgramiv, (GLuint, GLenum, GLint*))                                                \
    X(void, GetShaderInfoLog, (GLuint, GLsizei, GLsizei*, char*))                                  \
    X(void, GetShaderiv, (GLuint, GLenum, GLint*))                                                 \
    X(const unsigned char*, GetString, (GLenum))                                                   \
    X(GLint, GetUniformLocation, (GLuint, const char*))                                            \
    X(void, LinkProgram, (GLuint))                                                                 \
    X(void, PixelStorei, (GLenum, GLint))                                                          \
    X(void, ShaderSource, (GLuint, GLsizei, const char* const*, const GLint*))                     \
    X(void, StencilFunc, (GLenum, GLint, GLuint))                                                  \
    X(void, StencilMask, (GLuint))                                                                 \
    X(void, StencilOp, (GLenum, GLenum, GLenum))                                                   \
    X(void, TexImage2D,                                                                            \
      (GLenum, GLint, GLint, GLsizei, GLsizei, GLint, GLenum, GLenum, const void*))                \
    X(void, TexParameteri, (GLenum, GLenum, GLint))                                                \
    X(void, UniformMatrix4fv, (GLint, GLsizei, GLboolean, const float*))                           \
    X(void, UseProgram, (GLuint))                                                                  \
    X(void, VertexAttribPointer, (GLuint, GLint, GLenum, GLboolean, GLsizei, const void*))         \
    X(void, Viewport, (GLint, GLint, GLsizei, GLsizei))

// The core profile draws from vertex array objects only; older contexts may lack them.
#define DEMO_GL_VERTEX_ARRAY_FUNCTIONS(X)                                                          \
    X(void, BindVertexArray, (GLuint))                                                             \
    X(void, DeleteVertexArrays, (GLsizei, const GLuint*))                                          \
    X(void, GenVertexArrays, (GLsizei, GLuint*))

struct GlApi {
#define DEMO_GL_MEMBER(result, name, arguments) result(*name) arguments = nullptr;
    DEMO_GL_FUNCTIONS(DEMO_GL_MEMBER)
    DEMO_GL_VERTEX_ARRAY_FUNCTIONS(DEMO_GL_MEMBER)
#undef DEMO_GL_MEMBER
};

// Fills the table. False, with the name in the log, if a function is missing.
bool loadGl(GlApi& gl, retro_hw_get_proc_address_t getProcAddress, bool needVertexArrays);

} // namespace demo
