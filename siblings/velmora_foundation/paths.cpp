#include "velmora_foundation/paths.h"

namespace velmora::paths {

namespace {

[[maybe_unused]] QString unicode(const std::string& text) { return QString::fromStdString(text); }
[[maybe_unused]] QString unicode(const std::wstring& text) { return QString::fromStdWString(text); }

} // namespace

QString fromFs(const std::filesystem::path& path) {
    return unicode(path.generic_string<std::filesystem::path::value_type>());
}

} // namespace velmora::paths
