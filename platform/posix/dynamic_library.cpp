#include "platform/dynamic_library.h"

#include <dlfcn.h>

#include "platform/file.h"

namespace velmora::platform {

void* openLibrary(const std::filesystem::path& path) {
    // dlopen looks a name without a slash up in the loader's directories.
    const auto exact = path.has_parent_path() ? path : "." / path;
    // A pipe of that name would keep dlopen waiting for its other end.
    if (File(exact, QIODevice::ReadOnly).failure)
        return nullptr;
    return dlopen(exact.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* findSymbol(void* library, const char* name) { return dlsym(library, name); }

void closeLibrary(void* library) { dlclose(library); }

void keepModuleOf(void* function) noexcept {
    Dl_info module = {};
    if (dladdr(function, &module) != 0)
        dlopen(module.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

} // namespace velmora::platform
