#pragma once

#include <cstdint>

namespace velmora {

// No game or state that lives in memory comes near this; cores with larger games read them from the
// path. A file or a core that claims more is broken, and a system that promises memory it has not
// would end the program over it.
inline constexpr std::uint64_t sizeLimit = std::uint64_t{4} << 30;

} // namespace velmora
