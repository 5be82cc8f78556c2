#pragma once

#include <filesystem>
#include <string>

namespace velmora {

// The path's text in UTF-8 with forward slashes, the form in which cores see it. Throws only for
// lack of memory.
std::string pathToUtf8(const std::filesystem::path& path);

std::filesystem::path pathFromUtf8(const std::string& text);

} // namespace velmora
