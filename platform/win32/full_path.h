#pragma once

#include <filesystem>
#include <string>

namespace velmora::platform {

// `path` from its root on and with backslashes, in the form that opens paths of any length; empty
// where the system knows no such path. A path that has a root keeps it, whatever kind it is of.
std::wstring fullPath(const std::filesystem::path& path);

} // namespace velmora::platform
