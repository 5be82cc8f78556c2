#include "platform/dynamic_library.h"

#include <dlfcn.h>

#include "platform/file.h"

namespace velmora::platform {

void* openLibrary(const std::filesystem::path& path) {
    // dlopen looks a name without a slash up in the loader's directories, and takes a name that it
    // has seen for the module it got then, whatever the current directory is now.
    std::error_code error;
    const auto exact = std::filesystem::absolute(path, error);
    // A pipe or a terminal of that name would keep dlopen waiting.
    const File file(exact, QIODevice::ReadOnly);
    if (error || file.failure || file.isSequential())
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
