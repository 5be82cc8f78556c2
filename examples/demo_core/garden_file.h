#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace demo {

// What a game file says. Lines of "title = text" and "seed = number"; everything else is ignored,
// so any file at all is a garden.
struct Garden {
    std::array<char, 32> titleText{};
    std::uint32_t seed{};
    std::uint32_t id{}; // tells the states of one garden from those of another

    std::string_view title() const { return titleText.data(); }
};

// Without a seed line the seed follows from the bytes of the file.
Garden readGarden(std::span<const std::byte> file);

} // namespace demo
