#include "gl_scene.h"

#include <iterator>

#include "frontend_log.h"
#include "shader_program.h"

namespace demo {
namespace {

void createTexture(GlScene& scene) {
    const GlApi& gl = scene.gl;
    gl.GenTextures(1, &scene.texture);
    gl.BindTexture(glTexture2D, scene.texture);
    gl.TexParameteri(glTexture2D, glTextureMinFilter, static_cast<GLint>(glNearest));
    gl.TexParameteri(glTexture2D, glTextureMagFilter, static_cast<GLint>(glNearest));
    gl.PixelStorei(glUnpackAlignment, 4);
    gl.TexImage2D(glTexture2D, 0, static_cast<GLint>(glRgba), pictureSize, pictureSize, 0, glRgba,
                  glUnsignedByte, buildPicture().data());
    gl.BindTexture(glTexture2D, 0);
}

void pointAttributes(const GlApi& gl) {
    struct Field {
        GLint size;
        std::size_t offset;
    };
    constexpr Field fields[attributeCount] = {
        {3, offsetof(Vertex, x)}, {3, offsetof(Vertex, red)}, {2, offsetof(Vertex, s)}};
    for (GLuint i = 0; i < attributeCount; ++i) {
        gl.EnableVertexAttribArray(i);
        gl.VertexAttribPointer(i, fields[i].size, glFloat, 0, sizeof(Vertex),
                               reinterpret_cast<const void*>(fields[i].offset));
    }
}

void bindObjects(const GlScene& scene) {
    const GlApi& gl = scene.gl;
    gl.UseProgram(scene.program);
    if (scene.vertexArray != 0)
        gl.BindVertexArray(scene.vertexArray);
    gl.BindBuffer(glArrayBuffer, scene.vertexBuffer);
    pointAttributes(gl);
    gl.ActiveTexture(glTexture0);
    gl.BindTexture(glTexture2D, scene.texture);
}

// The frontend draws in the same context and expects nothing of ours in its way.
void unbindObjects(const GlScene& scene) {
    const GlApi& gl = scene.gl;
    for (GLuint i = 0; i < attributeCount; ++i)
        gl.DisableVertexAttribArray(i);
    gl.BindTexture(glTexture2D, 0);
    gl.BindBuffer(glArrayBuffer, 0);
    if (scene.vertexArray != 0)
        gl.BindVertexArray(0);
    gl.UseProgram(0);
    gl.BindFramebuffer(glFramebuffer, 0);
}

void clearFrame(const GlApi& gl, const FrameSettings& frame) {
    gl.Viewport(0, 0, static_cast<GLsizei>(frame.width), static_cast<GLsizei>(frame.height));
    for (const GLenum test :
         {glScissorTest, glBlending, glCullFaceTest, glStencilTest, glDepthTest})
        gl.Disable(test);
    gl.ColorMask(1, 1, 1, 1);
    gl.DepthMask(1);
    gl.StencilMask(0xff);
    gl.ClearColor(0, 0, 0, 1);
    gl.ClearStencil(0);
    gl.Clear(glColorBufferBit | glDepthBufferBit | glStencilBufferBit);
}

void setTransform(const GlScene& scene, const Matrix& transform) {
    scene.gl.UniformMatrix4fv(scene.transformLocation, 1, 0, transform.data());
}

void draw(const GlScene& scene, const Part& part) {
    scene.gl.DrawArrays(glTriangles, part.first, part.count);
}

void drawDepthProof(const GlScene& scene) {
    draw(scene, scene.geometry.nearArea);
    draw(scene, scene.geometry.farArea);
}

void drawStencilProof(const GlScene& scene) {
    const GlApi& gl = scene.gl;
    gl.Enable(glStencilTest);
    gl.ColorMask(0, 0, 0, 0);
    gl.StencilFunc(glAlways, 1, 0xff);
    gl.StencilOp(glKeep, glKeep, glReplace);
    draw(scene, scene.geometry.stencilMask);
    gl.ColorMask(1, 1, 1, 1);
    gl.StencilFunc(glEqual, 1, 0xff);
    gl.StencilOp(glKeep, glKeep, glKeep);
    draw(scene, scene.geometry.stencilArea);
    gl.Disable(glStencilTest);
}

Matrix sheetsTransform(const FrameSettings& frame) {
    const float aspect = static_cast<float>(frame.width) / static_cast<float>(frame.height);
    const Matrix turned = multiply(turningAboutX(0.3F), turningAboutY(frame.angle));
    const Matrix placed = multiply(moving(0, 0.2F, -5), turned);
    return multiply(perspective(aspect, 3.0F, 1, 20), placed);
}

} // namespace

bool createScene(GlScene& scene, retro_hw_get_proc_address_t getProcAddress, bool coreProfile) {
    scene = {};
    if (!loadGl(scene.gl, getProcAddress, coreProfile))
        return false;
    scene.program = buildProgram(scene.gl, coreProfile);
    if (scene.program == 0)
        return false;
    scene.transformLocation = scene.gl.GetUniformLocation(scene.program, "transform");
    if (coreProfile)
        scene.gl.GenVertexArrays(1, &scene.vertexArray);
    scene.gl.GenBuffers(1, &scene.vertexBuffer);
    createTexture(scene);
    logLine(RETRO_LOG_INFO, "OpenGL %s",
            reinterpret_cast<const char*>(scene.gl.GetString(glVersion)));
    return true;
}

void destroyScene(GlScene& scene) {
    if (scene.program != 0) {
        scene.gl.DeleteTextures(1, &scene.texture);
        scene.gl.DeleteBuffers(1, &scene.vertexBuffer);
        if (scene.vertexArray != 0)
            scene.gl.DeleteVertexArrays(1, &scene.vertexArray);
        scene.gl.DeleteProgram(scene.program);
    }
    scene = {};
}

void fitScene(GlScene& scene, unsigned width, unsigned height) {
    scene.geometry = buildGeometry(width, height);
    const auto& vertices = scene.geometry.vertices;
    scene.gl.BindBuffer(glArrayBuffer, scene.vertexBuffer);
    scene.gl.BufferData(glArrayBuffer,
                        static_cast<std::ptrdiff_t>(vertices.size() * sizeof(Vertex)),
                        vertices.data(), glStaticDraw);
    scene.gl.BindBuffer(glArrayBuffer, 0);
}

void drawFrame(const GlScene& scene, GLuint framebuffer, const FrameSettings& frame) {
    const GlApi& gl = scene.gl;
    // OpenGL counts rows from the bottom; a frontend that counts from the top gets them mirrored.
    const Matrix upright = scaling(1, frame.bottomLeftOrigin ? 1.0F : -1.0F, 1);
    gl.BindFramebuffer(glFramebuffer, framebuffer);
    clearFrame(gl, frame);
    bindObjects(scene);

    setTransform(scene, upright);
    draw(scene, scene.geometry.backdrop);
    gl.Enable(glDepthTest);
    gl.DepthFunc(glLess);
    drawDepthProof(scene);
    setTransform(scene, multiply(upright, sheetsTransform(frame)));
    draw(scene, scene.geometry.crossedSheets);
    gl.Disable(glDepthTest);

    setTransform(scene, upright);
    drawStencilProof(scene);
    draw(scene, scene.geometry.markers);
    unbindObjects(scene);
}

} // namespace demo
