#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velmora::platform {
namespace {

// Without O_NONBLOCK a pipe would be waited for until its other end is opened.
constexpr int always = O_NONBLOCK | O_CLOEXEC;
constexpr int toRead = always | O_RDONLY;
constexpr int toWrite = always | O_WRONLY | O_CREAT | O_TRUNC;

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
    : descriptor{
          ::open(path.c_str(), mode == QIODevice::ReadOnly ? toRead : toWrite, DEFFILEMODE)} {
    const int reason = descriptor.value < 0 ? errno : obstacle(descriptor.value);
    if (reason == 0)
        open(descriptor.value, mode | QIODevice::Unbuffered);
    failure.assign(reason, std::generic_category());
}

} // namespace velmora::platform
