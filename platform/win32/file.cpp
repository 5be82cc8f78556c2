#include "platform/file.h"

#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>

#include <cerrno>

#include "platform/win32/full_path.h"
#include "support/no_throw.h"

namespace velmora::platform {
namespace {

// Pipes and devices such as the console have no bytes of their own and may be waited for.
bool isStream(std::FILE* file) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    const DWORD type = GetFileType(handle);
    return type == FILE_TYPE_PIPE || type == FILE_TYPE_CHAR;
}

} // namespace

File openFile(const std::filesystem::path& path, FileAccess access,
              std::error_code& error) noexcept {
    errno = ENOMEM;
    File file(noThrowOr<std::FILE*>(nullptr, [&] {
        return _wfopen(fullPath(path).c_str(), access == FileAccess::read ? L"rb" : L"wb");
    }));
    error.assign(file ? 0 : errno, std::generic_category());
    if (file && isStream(file.get())) {
        file = nullptr;
        error.assign(ESPIPE, std::generic_category());
    }
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

} // namespace velmora::platform
