#include "core_host/utf8_path.h"

#include <algorithm>

#include <QString>

namespace velmora {

namespace {

// A system with narrow paths leaves their bytes to the user, and a core finds the file by nothing
// else, so they stay as they are. Wide text always has a form in UTF-8, broken places replaced.
[[maybe_unused]] std::string utf8(std::string native) { return native; }
[[maybe_unused]] std::string utf8(const std::wstring& native) {
    return QString::fromStdWString(native).toStdString();
}

} // namespace

std::string pathToUtf8(const std::filesystem::path& path) {
    std::string text = utf8(path.native());
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::filesystem::path pathFromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

} // namespace velmora
