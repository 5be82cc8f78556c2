#include "gl_api.h"

#include "frontend_log.h"

namespace demo {
namespace {

template <typename Function>
bool resolve(Function*& function, retro_hw_get_proc_address_t getProcAddress, const char* name,
             bool needed) {
    function = reinterpret_cast<Function*>(getProcAddress(name));
    if (function == nullptr && needed)
        logLine(RETRO_LOG_ERROR, "OpenGL lacks %s", name);
    return function != nullptr || !needed;
}

} // namespace

bool loadGl(GlApi& gl, retro_hw_get_proc_address_t getProcAddress, bool needVertexArrays) {
    bool complete = true;
#define DEMO_GL_RESOLVE(result, name, arguments)                                                   \
    complete = resolve(gl.name, getProcAddress, "gl" #name, needed) && complete;
    bool needed = true;
    DEMO_GL_FUNCTIONS(DEMO_GL_RESOLVE)
    needed = needVertexArrays;
    DEMO_GL_VERTEX_ARRAY_FUNCTIONS(DEMO_GL_RESOLVE)
#undef DEMO_GL_RESOLVE
    return complete;
}

} // namespace demo
