#include <velmora/sdl_video.h>

#include <SDL3/SDL_error.h>
#include <SDL3/SDL_video.h>

#include <algorithm>
#include <iterator>
#include <limits>

#include "platform/core_call.h"
#include "support/no_throw.h"
#include "video/gl_functions.h"

namespace velmora {
namespace {

// What SDL is asked for, and the version for a core that names none.
struct ContextKind {
    retro_hw_context_type type;
    int profile;
    int major;
    int minor;
};

constexpr ContextKind contextKinds[] = {
    {RETRO_HW_CONTEXT_OPENGL, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY, 2, 1},
    {RETRO_HW_CONTEXT_OPENGL_CORE, SDL_GL_CONTEXT_PROFILE_CORE, 3, 3},
};

// The largest picture that GPUs of today take. Some drivers crash over a size far beyond.
constexpr unsigned int maxFboSide = 16384;

int versionOr(int fallback, unsigned int asked) {
    constexpr unsigned int highest = std::numeric_limits<int>::max();
    return asked == 0 ? fallback : static_cast<int>(std::min(asked, highest));
}

// False for a kind of context that is not offered.
bool setContextAttributes(const retro_hw_render_callback& request) {
    const auto* kind = std::find_if(std::begin(contextKinds), std::end(contextKinds),
                                    [&](const auto& k) { return k.type == request.context_type; });
    if (kind == std::end(contextKinds))
        return false;
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, kind->profile);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION,
                        versionOr(kind->major, request.version_major));
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION,
                        versionOr(kind->minor, request.version_minor));
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, request.depth ? 24 : 0);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, request.stencil ? 8 : 0);
    if (request.debug_context)
        SDL_GL_SetAttribute(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG);
    return true;
}

} // namespace

SdlVideo* SdlVideo::active = nullptr;

bool SdlVideo::setupHardware(const retro_hw_render_callback& callback, int width, int height) {
    // A core that asks again from its own context_reset would do so for ever, and the context that
    // it is working on would go away under it.
    if (inContextCallback)
        return SDL_SetError("OpenGL requested from within a context callback");

    // The record may lie in memory that the core gives up in the context_destroy that comes first.
    const retro_hw_render_callback request = callback;
    destroy();
    hwRender = request;
    hardware = true;
    active = this;
    if (!setContextAttributes(request) || !createGlWindow("Velmora", width, height)) {
        hardware = false;
        active = nullptr;
        return false;
    }
    if (!createFbo(static_cast<unsigned int>(std::max(width, 640)),
                   static_cast<unsigned int>(std::max(height, 480))))
        fbo = 0;
    frameWidth = std::max(width, 1);
    frameHeight = std::max(height, 1);
    if (hwRender.context_reset)
        runContextCallback(hwRender.context_reset);
    return true;
}

bool SdlVideo::makeCurrent() const {
    return window && glContext && SDL_GL_MakeCurrent(window, glContext);
}

void SdlVideo::runContextCallback(retro_hw_context_reset_t callback) {
    inContextCallback = true;
    noThrow([=] { platform::enterCore(callback); });
    inContextCallback = false;
}

// A core may ask for OpenGL as the last thing it does, and its module is closed next.
void SdlVideo::forgetCoreOf(const LibretroHost* host) {
    if (hwOwner != host)
        return;
    hwRender.context_reset = nullptr;
    hwRender.context_destroy = nullptr;
}

void SdlVideo::resizeHardwareBuffers(unsigned int width, unsigned int height) {
    if (hardware)
        createFbo(width, height);
}

std::uintptr_t SdlVideo::currentFramebuffer() const { return fbo; }

std::uintptr_t SdlVideo::framebufferThunk() { return active ? active->currentFramebuffer() : 0; }

retro_proc_address_t SdlVideo::procAddressThunk(const char* symbol) {
    return symbol ? SDL_GL_GetProcAddress(symbol) : nullptr;
}

bool SdlVideo::createFbo(unsigned int width, unsigned int height) {
    width = std::max(width, 256U);
    height = std::max(height, 224U);
    if (fbo != 0 && fboWidth == width && fboHeight == height)
        return true;
    // An absurd request does not cost the core the framebuffer that it has.
    if (width > maxFboSide || height > maxFboSide)
        return false;
    destroyFbo();
    if (!makeCurrent() || !loadGlFunctions())
        return false;

    gl.glGenTextures(1, &fboTexture);
    gl.glBindTexture(GL_TEXTURE_2D, fboTexture);
    gl.glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, static_cast<int>(width), static_cast<int>(height),
                    0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);

    gl.glGenFramebuffers(1, &fbo);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, fbo);
    gl.glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, fboTexture, 0);
    fboWidth = width;
    fboHeight = height;
    attachDepthStencil();
    gl.glBindFramebuffer(GL_FRAMEBUFFER, 0);
    return fbo != 0;
}

void SdlVideo::attachDepthStencil() {
    if (!hwRender.depth && !hwRender.stencil)
        return;
    const GLenum format = hwRender.stencil ? GL_DEPTH24_STENCIL8 : GL_DEPTH_COMPONENT24;
    const GLenum attachment = hwRender.stencil ? GL_DEPTH_STENCIL_ATTACHMENT : GL_DEPTH_ATTACHMENT;
    gl.glGenRenderbuffers(1, &fboDepthStencil);
    gl.glBindRenderbuffer(GL_RENDERBUFFER, fboDepthStencil);
    gl.glRenderbufferStorage(GL_RENDERBUFFER, format, static_cast<int>(fboWidth),
                             static_cast<int>(fboHeight));
    gl.glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, fboDepthStencil);
}

void SdlVideo::destroyFbo() {
    const bool reachable = makeCurrent();
    deleteGlName(reachable ? gl.glDeleteRenderbuffers : nullptr, fboDepthStencil);
    deleteGlName(reachable ? gl.glDeleteTextures : nullptr, fboTexture);
    deleteGlName(reachable ? gl.glDeleteFramebuffers : nullptr, fbo);
    fboWidth = 0;
    fboHeight = 0;
}

} // namespace velmora
