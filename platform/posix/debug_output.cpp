#include "platform/debug_output.h"

namespace velmora::platform {

void debugOutput(const char* /*text*/) noexcept {}

} // namespace velmora::platform
