#pragma once

#include "geometry.h"
#include "gl_api.h"
#include "matrix.h"

namespace demo {

// The scene's objects in one OpenGL context, and the drawing of a frame. Every operation needs that
// context current.
struct GlScene {
    GlApi gl;
    Geometry geometry;
    GLuint program = 0;
    GLint transformLocation = 0;
    GLuint vertexArray = 0;
    GLuint vertexBuffer = 0;
    GLuint texture = 0;
};

struct FrameSettings {
    unsigned width;
    unsigned height;
    float angle; // of the turning shape, in radians
    bool bottomLeftOrigin;
};

// Makes every object anew; names of an earlier context are forgotten. False, with the reason in the
// log, if the context cannot draw the scene.
bool createScene(GlScene& scene, retro_hw_get_proc_address_t getProcAddress, bool coreProfile);
void destroyScene(GlScene& scene);

// Places that count in pixels follow the size of the picture.
void fitScene(GlScene& scene, unsigned width, unsigned height);

// Draws a whole frame into the framebuffer and leaves the context as a fresh one is.
void drawFrame(const GlScene& scene, GLuint framebuffer, const FrameSettings& frame);

} // namespace demo
