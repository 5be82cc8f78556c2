// Row conversion of the 16-bit formats against a copy of the same output.
#include <cstdint>
#include <cstring>

#include "ratio_table.h"
#include "video/pixel_conversion.h"

namespace velmora::bench {
namespace {

constexpr std::size_t mostPixels = 640 * 480;
constexpr std::size_t pageBytes = 4096;

// Where source and target stand to each other within a page can cost a copy more than all else, so
// it is the same for both sides and in every run: about half a page apart, where no store meets a
// load. Within its page the target lies as a large vector's memory does.
struct alignas(pageBytes) Frames {
    std::uint32_t source[mostPixels];
    std::uint32_t apart[(pageBytes / 2 + 16) / sizeof(std::uint32_t)];
    std::uint32_t target[mostPixels];
};
static_assert(sizeof Frames::source % pageBytes == 0);

Frames frames;

using RowLoop = void (*)(const unsigned char*, std::uint32_t*, std::size_t);

void measureFormat(const RatioTable& table, const std::string& format, RowLoop loop,
                   std::size_t width, std::size_t height, double bound) {
    const auto convert = [=] {
        const auto* source = reinterpret_cast<const unsigned char*>(frames.source);
        for (std::size_t row = 0; row < height; ++row)
            loop(source + row * width * 2, frames.target + row * width, width);
    };
    const auto copy = [=] {
        std::memcpy(frames.target, frames.source, width * height * sizeof *frames.target);
    };
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    table.ratio({"converting rows of " + format + ", " + size, "`memcpy` of the output",
                 Clock::Thread, bound},
                {convert}, {copy});
}

} // namespace

void measureConversion(const RatioTable& table) {
    std::memset(&frames, 0x5a, sizeof frames);
    const auto measureSize = [&](std::size_t width, std::size_t height) {
        // Four fifths of memcpy's speed. Where a processor copies 64 bytes at a time from cache to
        // cache, a small picture cannot keep up with it in steps of 16.
        constexpr double bound = 1 / 0.8;
        measureFormat(table, "RGB565", convertRowRgb565, width, height, bound);
        measureFormat(table, "0RGB1555", convertRow0rgb1555, width, height, bound);
    };
    measureSize(256, 224);
    measureSize(640, 480);
}

} // namespace velmora::bench
