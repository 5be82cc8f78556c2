#pragma once

#include <filesystem>

// Opening code at run time, the way the system does it.
namespace velmora::platform {

// Opens the module at `path`; a relative path counts from the current directory and is
// never searched for. Null when that fails.
void* openLibrary(const std::filesystem::path& path);

// The address of an exported symbol, or null.
void* findSymbol(void* library, const char* name);

// Closes what openLibrary gave.
void closeLibrary(void* library);

// Keeps the module that holds the function mapped until the process ends, whoever closes it.
void keepModuleOf(void* function) noexcept;

} // namespace velmora::platform
