#include "platform/win32/full_path.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace velmora::platform {
namespace {

// What the system takes as it stands. Anything else has to fit in MAX_PATH characters with its end.
std::wstring unlimited(std::wstring full) {
    if (full.size() < MAX_PATH || full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)"))
        return full;
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

} // namespace

// std::filesystem::absolute would make a network share a directory of the current drive.
std::wstring fullPath(const std::filesystem::path& path) {
    std::wstring full;
    DWORD length = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    // Again where another thread's change of directory made it longer meanwhile.
    while (length > full.size()) {
        full.resize(length);
        length = GetFullPathNameW(path.c_str(), length, full.data(), nullptr);
    }
    full.resize(length);
    return unlimited(std::move(full));
}

} // namespace velmora::platform
