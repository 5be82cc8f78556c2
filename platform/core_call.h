#pragma once

#include "platform/dynamic_library.h"

namespace velmora::platform {

// Enters the core; what it throws goes on to the caller. Many cores are C++ inside, and one that
// throws may leave threads of its own running, so the module stays mapped for good.
template <class Entry, class... Arguments>
auto enterCore(Entry entry, Arguments... arguments) {
    try {
        return entry(arguments...);
    } catch (...) {
        keepModuleOf(reinterpret_cast<void*>(entry));
        throw;
    }
}

} // namespace velmora::platform
