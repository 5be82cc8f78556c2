#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velmora::platform {
namespace {

// What stands against moving bytes to or from what was opened, 0 for nothing.
int obstacle(int descriptor) {
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    return S_ISFIFO(status.st_mode) ? ESPIPE : 0;
}

} // namespace

File openFile(const std::filesystem::path& path, FileAccess access,
              std::error_code& error) noexcept {
    const bool reads = access == FileAccess::read;
    // Without O_NONBLOCK a pipe would be waited for until its other end is opened.
    const int descriptor =
        open(path.c_str(),
             (reads ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC) | O_NONBLOCK | O_CLOEXEC, 0666);
    const int failure = descriptor < 0 ? errno : obstacle(descriptor);
    File file(failure == 0 ? fdopen(descriptor, reads ? "rb" : "wb") : nullptr);
    error.assign(failure != 0 ? failure : file ? 0 : errno, std::generic_category());
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    else if (descriptor >= 0)
        close(descriptor);
    return file;
}

} // namespace velmora::platform
