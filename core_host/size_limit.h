#pragma once

#include <cstdint>

namespace velmora {

// No game, state or battery memory that lives in memory comes near this; cores with larger games
// read them from the path. A file or a core that claims more is broken.
inline constexpr std::uint64_t sizeLimit = std::uint64_t{4} << 30;

} // namespace velmora
