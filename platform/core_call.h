#pragma once

#include "platform/dynamic_library.h"
#include "support/no_throw.h"

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

// The same for an entry point that agrees or refuses: a throw is its refusal.
template <class Entry, class... Arguments>
bool coreAgrees(Entry entry, Arguments... arguments) {
    return noThrowOr(false, [&] { return enterCore(entry, arguments...); });
}

} // namespace velmora::platform
