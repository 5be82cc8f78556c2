#pragma once

#include <filesystem>
#include <system_error>

#include <QFile>

namespace velmora::platform {

// A file opened to be read, or to be written anew, for as long as the object lives; unbuffered, so
// that bytes move straight between it and the memory they belong to. Throws for lack of memory.
//
// This is the one rule for every file: no question is asked beforehand, since where asking fails
// opening may work. What would be waited for or has no bytes of its own, such as a pipe or a
// directory, is not opened.
class File : public QFile {
public:
    File(const std::filesystem::path& path, QIODevice::OpenModeFlag mode);

    // Why the file is not open; none when it is.
    std::error_code failure;

private:
    // Ours to close, whatever happens while QFile takes it over.
    struct Descriptor {
        int value;
        ~Descriptor();
    };
    Descriptor descriptor;
};

} // namespace velmora::platform
