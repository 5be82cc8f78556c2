#include "video/pixel_conversion.h"

#include <cstring>

// SSE2 is part of every x86-64. A loop that compilers make vectors of by themselves works in 32-bit
// lanes and takes twice the time.
#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define VELMORA_HAVE_SSE2 1
#endif

namespace velmora {
namespace {

// How a 16-bit pixel becomes the two halves of its word. Blue is the low five bits in both formats.
struct PixelLayout {
    int redShift; // to the right, to the low byte of the upper half
    std::uint16_t greenMask;
    int greenShift; // to the left, to the high byte of the lower half
};

constexpr PixelLayout rgb565 = {8, 0x07e0, 5};
constexpr PixelLayout xrgb1555 = {7, 0x03e0, 6};
constexpr std::uint16_t blueMask = 0x001f;
constexpr int blueShift = 3;
constexpr std::uint16_t redByteMask = 0x00f8;

template <PixelLayout layout>
void convertPlain(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint16_t loaded = 0;
        std::memcpy(&loaded, src + i * sizeof loaded, sizeof loaded);
        const std::uint32_t pixel = loaded;
        dst[i] = ((pixel >> layout.redShift) & redByteMask) << 16 |
                 (pixel & layout.greenMask) << layout.greenShift | (pixel & blueMask) << blueShift;
    }
}

#ifdef VELMORA_HAVE_SSE2

constexpr std::size_t blockPixels = 8;
// So many blocks a turn keep the loop itself out of the time.
constexpr std::size_t turnPixels = 4 * blockPixels;

inline __m128i everyLane(std::uint16_t value) { return _mm_set1_epi16(static_cast<short>(value)); }

// Eight pixels. The halves of the words are worked out in 16-bit lanes, which takes half the
// instructions of 32-bit ones, and then interleaved.
template <PixelLayout layout>
inline void convertBlock(const unsigned char* src, std::uint32_t* dst) {
    const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src));
    const __m128i green =
        _mm_slli_epi16(_mm_and_si128(pixels, everyLane(layout.greenMask)), layout.greenShift);
    const __m128i blue = _mm_slli_epi16(_mm_and_si128(pixels, everyLane(blueMask)), blueShift);
    const __m128i low = _mm_or_si128(green, blue);
    const __m128i high =
        _mm_and_si128(_mm_srli_epi16(pixels, layout.redShift), everyLane(redByteMask));
    auto* out = reinterpret_cast<__m128i*>(dst);
    _mm_storeu_si128(out, _mm_unpacklo_epi16(low, high));
    _mm_storeu_si128(out + 1, _mm_unpackhi_epi16(low, high));
}

#endif

template <PixelLayout layout>
void convert(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    std::size_t done = 0;
#ifdef VELMORA_HAVE_SSE2
    for (; done + turnPixels <= count; done += turnPixels) {
        for (std::size_t i = 0; i < turnPixels; i += blockPixels)
            convertBlock<layout>(src + (done + i) * sizeof(std::uint16_t), dst + done + i);
    }
    for (; done + blockPixels <= count; done += blockPixels)
        convertBlock<layout>(src + done * sizeof(std::uint16_t), dst + done);
#endif
    convertPlain<layout>(src + done * sizeof(std::uint16_t), dst + done, count - done);
}

} // namespace

void convertRowRgb565(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    convert<rgb565>(src, dst, count);
}

void convertRow0rgb1555(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    convert<xrgb1555>(src, dst, count);
}

} // namespace velmora
