#include "velmora_foundation/paths.h"

namespace velmora::paths {

QString fromFs(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.generic_u16string());
}

} // namespace velmora::paths
