#pragma once

#include "gl_api.h"

namespace demo {

// Places of the vertex attributes in the program.
enum Attribute : GLuint { attributePosition, attributeColour, attributeTexel, attributeCount };

// Builds the one program of the scene for the core profile or for the older language. 0, with the
// compiler's words in the log, on failure.
GLuint buildProgram(const GlApi& gl, bool coreProfile);

} // namespace demo
