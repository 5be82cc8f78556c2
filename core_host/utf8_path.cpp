#include "core_host/utf8_path.h"

#include <algorithm>

namespace velmora {

std::string pathToUtf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    std::string utf8(text.begin(), text.end());
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    return utf8;
}

std::filesystem::path pathFromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

} // namespace velmora
