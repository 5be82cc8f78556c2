#include "shader_program.h"

#include <array>

#include "frontend_log.h"

namespace demo {
namespace {

// The two languages differ in a few words only; each stage has one body behind one of two heads.
struct Heads {
    const char* vertex;
    const char* fragment;
};

constexpr Heads oldHeads{"#version 120\n"
                         "#define INPUT attribute\n"
                         "#define OUTPUT varying\n",
                         "#version 120\n"
                         "#define INPUT varying\n"
                         "#define SAMPLE texture2D\n"
                         "#define RESULT gl_FragColor\n"};
constexpr Heads coreHeads{"#version 150\n"
                          "#define INPUT in\n"
                          "#define OUTPUT out\n",
                          "#version 150\n"
                          "#define INPUT in\n"
                          "#define SAMPLE texture\n"
                          "#define RESULT result\n"
                          "out vec4 result;\n"};

constexpr const char* vertexBody = R"(
INPUT vec3 position;
INPUT vec3 colour;
INPUT vec2 texel;
OUTPUT vec3 shade;
OUTPUT vec2 place;
uniform mat4 transform;

void main() {
    gl_Position = transform * vec4(position, 1.0);
    shade = colour;
    place = texel;
}
)";

constexpr const char* fragmentBody = R"(
INPUT vec3 shade;
INPUT vec2 place;
uniform sampler2D picture;

void main() {
    RESULT = SAMPLE(picture, place) * vec4(shade, 1.0);
}
)";

GLuint compile(const GlApi& gl, GLenum stage, const char* head, const char* body) {
    const GLuint shader = gl.CreateShader(stage);
    const std::array<const char*, 2> parts{head, body};
    gl.ShaderSource(shader, 2, parts.data(), nullptr);
    gl.CompileShader(shader);
    GLint compiled = 0;
    gl.GetShaderiv(shader, glCompileStatus, &compiled);
    if (compiled != 0)
        return shader;
    std::array<char, 400> words{};
    gl.GetShaderInfoLog(shader, static_cast<GLsizei>(words.size()), nullptr, words.data());
    logLine(RETRO_LOG_ERROR, "shader: %s", words.data());
    gl.DeleteShader(shader);
    return 0;
}

bool link(const GlApi& gl, GLuint program) {
    gl.BindAttribLocation(program, attributePosition, "position");
    gl.BindAttribLocation(program, attributeColour, "colour");
    gl.BindAttribLocation(program, attributeTexel, "texel");
    gl.LinkProgram(program);
    GLint linked = 0;
    gl.GetProgramiv(program, glLinkStatus, &linked);
    if (linked != 0)
        return true;
    std::array<char, 400> words{};
    gl.GetProgramInfoLog(program, static_cast<GLsizei>(words.size()), nullptr, words.data());
    logLine(RETRO_LOG_ERROR, "program: %s", words.data());
    return false;
}

} // namespace

GLuint buildProgram(const GlApi& gl, bool coreProfile) {
    const Heads& heads = coreProfile ? coreHeads : oldHeads;
    const GLuint vertex = compile(gl, glVertexShader, heads.vertex, vertexBody);
    const GLuint fragment = compile(gl, glFragmentShader, heads.fragment, fragmentBody);
    GLuint program = 0;
    if (vertex != 0 && fragment != 0) {
        program = gl.CreateProgram();
        gl.AttachShader(program, vertex);
        gl.AttachShader(program, fragment);
        if (!link(gl, program)) {
            gl.DeleteProgram(program);
            program = 0;
        }
    }
    gl.DeleteShader(vertex);
    gl.DeleteShader(fragment);
    return program;
}

} // namespace demo
