#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace demo {

// FNV-1a, 32 bits: enough to notice foreign or damaged bytes.
inline std::uint32_t hashOf(std::span<const std::byte> bytes) {
    std::uint32_t hash = 0x811c9dc5;
    for (const std::byte each : bytes)
        hash = (hash ^ std::to_integer<std::uint32_t>(each)) * 0x01000193;
    return hash;
}

} // namespace demo
