#include "platform/dynamic_library.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "platform/win32/full_path.h"

namespace velmora::platform {

void* openLibrary(const std::filesystem::path& path) {
    // Only a full path with backslashes keeps LoadLibraryW from searching.
    const std::wstring exact = fullPath(path);
    if (exact.empty())
        return nullptr;
    // A file that is no module is a failure to report, not a dialog to wait for.
    DWORD oldMode = 0;
    SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &oldMode);
    const HMODULE library = LoadLibraryW(exact.c_str());
    SetThreadErrorMode(oldMode, nullptr);
    return library;
}

void* findSymbol(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void closeLibrary(void* library) { FreeLibrary(static_cast<HMODULE>(library)); }

void keepModuleOf(void* function) noexcept {
    HMODULE ignored = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       static_cast<LPCWSTR>(function), &ignored);
}

} // namespace velmora::platform
