#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace velmora::platform {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

using File = std::unique_ptr<std::FILE, FileCloser>;

enum class FileAccess { read, write };

// Opens the file at `path`, binary, at its start and without a buffer; for writing it is made, or
// cut to nothing. Null with `error` set when that fails. This is the one rule for every file: no
// question is asked beforehand, since where asking fails opening may work. What would be waited for
// or has no bytes of its own, a pipe or a directory, is not opened.
File openFile(const std::filesystem::path& path, FileAccess access,
              std::error_code& error) noexcept;

} // namespace velmora::platform
