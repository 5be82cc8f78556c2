#include "frontend_log.h"

#include <cstdarg>
#include <cstdio>

namespace demo {
namespace {

retro_log_printf_t frontendLog = nullptr;

} // namespace

void openLog(retro_environment_t environment) {
    retro_log_callback interface {};
    frontendLog =
        environment(RETRO_ENVIRONMENT_GET_LOG_INTERFACE, &interface) ? interface.log : nullptr;
}

void logLine(retro_log_level level, const char* format, ...) {
    char text[512];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    if (frontendLog != nullptr)
        frontendLog(level, "%s\n", text);
    else
        std::fprintf(stderr, "%s\n", text);
}

} // namespace demo
