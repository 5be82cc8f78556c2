#include "platform/file.h"

#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>

#include "platform/win32/full_path.h"

namespace velmora::platform {
namespace {

constexpr int always = _O_BINARY | _O_NOINHERIT;
constexpr int toRead = always | _O_RDONLY;
constexpr int toWrite = always | _O_WRONLY | _O_CREAT | _O_TRUNC;

// Pipes, and devices such as the console, have no bytes of their own and may be waited for.
bool isStream(int descriptor) {
    const DWORD type = GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)));
    return type == FILE_TYPE_PIPE || type == FILE_TYPE_CHAR;
}

// A share out of reach is no file that is missing.
int openFailure() {
    const unsigned long reason = _doserrno;
    const bool missing = reason == ERROR_FILE_NOT_FOUND || reason == ERROR_PATH_NOT_FOUND;
    return errno == ENOENT && !missing ? EIO : errno;
}

} // namespace

File::Descriptor::~Descriptor() {
    if (value >= 0)
        _close(value);
}

File::File(const std::filesystem::path& path, QIODevice::OpenModeFlag mode)
    : descriptor{_wopen(fullPath(path).c_str(), mode == QIODevice::ReadOnly ? toRead : toWrite,
                        _S_IREAD | _S_IWRITE)} {
    const int reason = descriptor.value < 0         ? openFailure()
                       : isStream(descriptor.value) ? ESPIPE
                                                    : 0;
    if (reason == 0)
        open(descriptor.value, mode | QIODevice::Unbuffered);
    failure.assign(reason, std::generic_category());
}

} // namespace velmora::platform
