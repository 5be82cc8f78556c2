#pragma once

#include <filesystem>
#include <system_error>

#include <QFile>

namespace velmora {

// Opens `file` on `path` for reading, or for writing anew, unbuffered: bytes move straight between
// the file and the memory they belong to. No error on success.
std::error_code openFile(QFile& file, const std::filesystem::path& path,
                         QIODevice::OpenModeFlag mode);

} // namespace velmora
