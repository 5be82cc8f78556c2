#pragma once

#include <cstddef>
#include <cstdint>

namespace velmora {

// Turn `count` pixels of 16 bits, in the machine's byte order and at any address, into words
// 0x00RRGGBB. A channel moves to the top of its byte; the bits below stay zero.
void convertRowRgb565(const unsigned char* src, std::uint32_t* dst, std::size_t count);
void convertRow0rgb1555(const unsigned char* src, std::uint32_t* dst, std::size_t count);

} // namespace velmora
