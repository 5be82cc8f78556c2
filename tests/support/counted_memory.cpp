#include "support/counted_memory.h"

#include <cstdlib>
#include <new>

namespace memory = velmora::test::memory;

// All forms, lest memory of one family is given back to another.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    const long number = memory::allocations++;
    if (size >= memory::refusedSize || (number >= memory::failFrom && number <= memory::failTo)) {
        memory::failed = true;
        return nullptr;
    }
    return std::malloc(size ? size : 1);
}
void* operator new(std::size_t size) {
    if (void* block = operator new(size, std::nothrow))
        return block;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
