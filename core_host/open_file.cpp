#include "core_host/open_file.h"

#include "platform/file.h"

namespace velmora {

std::error_code openFile(QFile& file, const std::filesystem::path& path,
                         QIODevice::OpenModeFlag mode) {
    std::error_code error;
    platform::File opened = platform::openFile(
        path,
        mode == QIODevice::ReadOnly ? platform::FileAccess::read : platform::FileAccess::write,
        error);
    if (!opened)
        return error;
    if (!file.open(opened.get(), mode | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        return std::make_error_code(std::errc::io_error);
    static_cast<void>(opened.release());
    return {};
}

} // namespace velmora
