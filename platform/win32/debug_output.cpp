#include "platform/debug_output.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace velmora::platform {

void debugOutput(const char* text) noexcept { OutputDebugStringA(text); }

} // namespace velmora::platform
