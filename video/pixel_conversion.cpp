#include "video/pixel_conversion.h"

#include <cstring>

// Unoptimised, the vectors pass through the stack: no gain, and GCC for Windows does not align it
// for them.
#if defined(__x86_64__) && defined(__GNUC__) && defined(__OPTIMIZE__)
#include <immintrin.h>
#define VELMORA_HAVE_AVX2_LOOP 1
#define VELMORA_AVX2 __attribute__((target("avx2")))
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
void convertPlain(const unsigned char* __restrict src, std::uint32_t* __restrict dst,
                  std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint16_t loaded = 0;
        std::memcpy(&loaded, src + i * sizeof loaded, sizeof loaded);
        const std::uint32_t pixel = loaded;
        dst[i] = ((pixel >> layout.redShift) & redByteMask) << 16 |
                 (pixel & layout.greenMask) << layout.greenShift | (pixel & blueMask) << blueShift;
    }
}

#ifdef VELMORA_HAVE_AVX2_LOOP

constexpr std::size_t blockPixels = 16;

[[gnu::always_inline]] VELMORA_AVX2 inline __m256i everyLane(std::uint16_t value) {
    return _mm256_set1_epi16(static_cast<short>(value));
}

// Sixteen pixels. The halves of the words are worked out in 16-bit lanes, which takes half the
// instructions of 32-bit ones, and then interleaved.
template <PixelLayout layout>
[[gnu::always_inline]] VELMORA_AVX2 inline void convertBlock(const unsigned char* src,
                                                             std::uint32_t* dst) {
    const __m256i loaded = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src));
    // The interleaving works within each 128-bit lane; this order of the quarters makes up for it.
    const __m256i pixels = _mm256_permute4x64_epi64(loaded, _MM_SHUFFLE(3, 1, 2, 0));
    const __m256i green =
        _mm256_slli_epi16(_mm256_and_si256(pixels, everyLane(layout.greenMask)), layout.greenShift);
    const __m256i blue =
        _mm256_slli_epi16(_mm256_and_si256(pixels, everyLane(blueMask)), blueShift);
    const __m256i low = _mm256_or_si256(green, blue);
    const __m256i high =
        _mm256_and_si256(_mm256_srli_epi16(pixels, layout.redShift), everyLane(redByteMask));
    auto* out = reinterpret_cast<__m256i*>(dst);
    _mm256_storeu_si256(out, _mm256_unpacklo_epi16(low, high));
    _mm256_storeu_si256(out + 1, _mm256_unpackhi_epi16(low, high));
}

// The first and the last block may overlap their neighbours, so that the stores between them fill
// whole cache lines and no pixel is left over: both count for a fifth of the time at 256 pixels.
template <PixelLayout layout>
VELMORA_AVX2 void convertAvx2(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    constexpr std::uintptr_t writeAhead = 512;
    constexpr std::size_t lineBytes = blockPixels * sizeof *dst;
    convertBlock<layout>(src, dst);
    const auto address = reinterpret_cast<std::uintptr_t>(dst);
    std::size_t i = (lineBytes - address % lineBytes) / sizeof *dst;
    for (; i + blockPixels <= count; i += blockPixels) {
        // Asks for the line to come, which need not lie within the row or the buffer.
        __builtin_prefetch(reinterpret_cast<const void*>(address + i * sizeof *dst + writeAhead),
                           1);
        convertBlock<layout>(src + i * 2, dst + i);
    }
    if (i < count)
        convertBlock<layout>(src + (count - blockPixels) * 2, dst + count - blockPixels);
}

#endif

template <PixelLayout layout>
void convert(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
#ifdef VELMORA_HAVE_AVX2_LOOP
    if (count >= blockPixels && __builtin_cpu_supports("avx2")) {
        convertAvx2<layout>(src, dst, count);
        return;
    }
#endif
    convertPlain<layout>(src, dst, count);
}

} // namespace

void convertRowRgb565(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    convert<rgb565>(src, dst, count);
}

void convertRow0rgb1555(const unsigned char* src, std::uint32_t* dst, std::size_t count) {
    convert<xrgb1555>(src, dst, count);
}

} // namespace velmora
