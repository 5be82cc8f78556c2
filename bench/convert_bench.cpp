// Row conversion of the 16-bit formats against a copy of the same output.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "ratio_table.h"
#include "video/pixel_conversion.h"

namespace velmora::bench {
namespace {

using RowLoop = void (*)(const unsigned char*, std::uint32_t*, std::size_t);

void convert(benchmark::State& state, RowLoop loop) {
    const auto width = static_cast<std::size_t>(state.range(0));
    const auto height = static_cast<std::size_t>(state.range(1));
    std::vector<unsigned char> source(width * height * 2, 0x5a);
    std::vector<std::uint32_t> target(width * height);
    for (auto _ : state) {
        for (std::size_t row = 0; row < height; ++row)
            loop(source.data() + row * width * 2, target.data() + row * width, width);
        benchmark::ClobberMemory();
    }
}

void copyOutput(benchmark::State& state) {
    const auto words = static_cast<std::size_t>(state.range(0) * state.range(1));
    const std::vector<std::uint32_t> source(words, 0x5a5a5a);
    std::vector<std::uint32_t> target(words);
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), words * sizeof(std::uint32_t));
        benchmark::ClobberMemory();
    }
}

void registerSize(long width, long height, double aim) {
    const std::string size = std::to_string(width) + "/" + std::to_string(height);
    const auto add = [&](const char* name, auto... loop) {
        benchmark::RegisterBenchmark(name, loop...)->Args({width, height});
    };
    add("copy_output", copyOutput);
    add("rgb565", convert, convertRowRgb565);
    add("0rgb1555", convert, convertRow0rgb1555);
    for (const char* format : {"rgb565", "0rgb1555"})
        addRatio({std::string(format) + " rows, bytes per second against memcpy, " + size,
                  std::string(format) + "/" + size, "copy_output/" + size, Aim::SpeedAtLeast, aim});
}

[[maybe_unused]] const bool registered = [] {
    registerSize(256, 224, 0.9);
    registerSize(640, 480, 0.55);
    return true;
}();

} // namespace
} // namespace velmora::bench
