#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace demo {

inline std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Calls visit(key, value) for each line of the form "key = value"; other lines, comments with a
// leading '#' among them, are skipped.
template <typename Visitor>
void forEachSetting(std::span<const std::byte> file, Visitor visit) {
    std::string_view text{reinterpret_cast<const char*>(file.data()), file.size()};
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && line.front() != '#')
            visit(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
}

} // namespace demo
