#pragma once

#include <velmora/libretro.h>

namespace demo {

// Fetches the frontend's log interface; without one, messages go to the standard error stream.
void openLog(retro_environment_t environment);

// One line, without its line end.
#ifdef __GNUC__
__attribute__((format(printf, 2, 3)))
#endif
void logLine(retro_log_level level, const char* format, ...);

} // namespace demo
