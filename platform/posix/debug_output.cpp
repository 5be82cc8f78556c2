#include "platform/debug_output.h"

#include <cstdio>

namespace velmora::platform {

void debugOutput(const char* text) noexcept { std::fputs(text, stderr); }

} // namespace velmora::platform
