#pragma once

#include <cstdint>

namespace velmora {

// No game or state that lives in memory comes near this. A file or a core that claims more is
// broken, and is refused before a system that promises more memory than it has gets to pay it out.
inline constexpr std::uint64_t sizeLimit = std::uint64_t{16} << 30;

} // namespace velmora
