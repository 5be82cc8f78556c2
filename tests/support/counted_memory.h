#pragma once

#include <atomic>
#include <cstddef>

// Linked into a test program, counted_memory.cpp stands for operator new of the library too: the
// test counts what is allocated and decides what is refused.
namespace velmora::test::memory {

// Calls so far. Those numbered `failFrom` to `failTo` find no memory, and neither do blocks of
// `refusedSize` bytes or more; `failed` tells that one did not.
inline std::atomic<long> allocations = 0;
inline std::atomic<long> failFrom = -1;
inline std::atomic<long> failTo = -1;
inline std::atomic<std::size_t> refusedSize = static_cast<std::size_t>(-1);
inline std::atomic<bool> failed = false;

} // namespace velmora::test::memory
