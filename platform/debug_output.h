#pragma once

namespace velmora::platform {

// Writes a piece of text, zero-terminated, to the channel that a debugger reads: the debugger's own
// on Windows, standard error elsewhere.
void debugOutput(const char* text) noexcept;

} // namespace velmora::platform
