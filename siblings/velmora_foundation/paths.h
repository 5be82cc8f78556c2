#pragma once

#include <filesystem>

#include <QString>

// A stand-in for VelmoraFoundation, as far as VelmoraHost needs it.
namespace velmora::paths {

// The path as Qt writes paths: Unicode with forward slashes, what is no text in it replaced.
QString fromFs(const std::filesystem::path& path);

} // namespace velmora::paths
