#pragma once

namespace velmora::platform {

// Writes a piece of text, zero-terminated, to the channel that only a debugger reads. Elsewhere
// than on Windows there is none: a debugger shows standard error, where Qt's log comes out by
// itself, and a line written there too would stand twice.
void debugOutput(const char* text) noexcept;

} // namespace velmora::platform
