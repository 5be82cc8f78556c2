#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velmora::platform {
namespace {

constexpr int toRead = O_CLOEXEC | O_RDONLY;
constexpr int toWrite = O_CLOEXEC | O_WRONLY | O_CREAT | O_TRUNC;

int openUninterrupted(const char* path, int flags) {
    int descriptor = -1;
    do
        descriptor = ::open(path, flags, DEFFILEMODE);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// Without O_NONBLOCK a pipe would be waited for until its other end is opened. With it a file that
// another machine has on lease is refused, which is given back soon.
int openDescriptor(const char* path, int flags) {
    const int descriptor = openUninterrupted(path, flags | O_NONBLOCK);
    return descriptor < 0 && errno == EWOULDBLOCK ? openUninterrupted(path, flags) : descriptor;
}

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

File::Descriptor::~Descriptor() {
    if (value >= 0)
        ::close(value);
}

File::File(const std::filesystem::path& path, QIODevice::OpenModeFlag mode)
    : descriptor{openDescriptor(path.c_str(), mode == QIODevice::ReadOnly ? toRead : toWrite)} {
    const int reason = descriptor.value < 0 ? errno : obstacle(descriptor.value);
    if (reason == 0)
        open(descriptor.value, mode | QIODevice::Unbuffered);
    failure.assign(reason, std::generic_category());
}

} // namespace velmora::platform
