// A state's way to disk and back against the core's own copying plus a plain write or read.
#include <cstdlib>
#include <fstream>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "bare_core.h"
#include "ratio_table.h"

namespace velmora::bench {
namespace {

using Bytes = std::unique_ptr<char[]>;

Bytes allocate(std::size_t size) { return std::make_unique_for_overwrite<char[]>(size); }

void bareSave(const BareCore& core, const std::filesystem::path& path) {
    const std::size_t size = core.stateSize();
    const Bytes bytes = allocate(size);
    core.serialize(bytes.get(), size);
    std::filebuf file;
    file.open(path, std::ios::out | std::ios::trunc | std::ios::binary);
    file.sputn(bytes.get(), static_cast<std::streamsize>(size));
}

void bareLoad(const BareCore& core, const std::filesystem::path& path) {
    std::filebuf file;
    file.open(path, std::ios::in | std::ios::binary);
    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path));
    const Bytes bytes = allocate(size);
    file.sgetn(bytes.get(), static_cast<std::streamsize>(size));
    core.unserialize(bytes.get(), size);
}

void measureSize(const RatioTable& table, const std::string& size, std::size_t bytes) {
    const test::ScratchDirectory scratch;
    const auto game = workloadFile(scratch, "bytes=" + std::to_string(bytes));
    LibretroHost host;
    start(host, VELMORA_BENCH_CORE, game);
    const BareCore core(VELMORA_BENCH_CORE, scratch.path(), game);
    const auto file = scratch / "host.state";
    const auto bareFile = scratch / "bare.state";
    table.ratio(
        {"saving a state of " + size, "the core's copy and a bare write", Clock::Thread, 1.1},
        {[&] { host.saveState(file); }}, {[&] { bareSave(core, bareFile); }});
    host.saveState(file);
    bareSave(core, bareFile);
    table.ratio(
        {"loading a state of " + size, "a bare read and the core's copy", Clock::Thread, 1.1},
        {[&] { host.loadState(file); }}, {[&] { bareLoad(core, bareFile); }});
}

} // namespace

void measureStates(const RatioTable& table) {
#ifdef __GLIBC__
    // Left to itself glibc sooner or later keeps the memory of a large state for the next one, and
    // that side of a ratio alone pays for no fresh pages. As in a game, each state gets fresh ones.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#endif
    measureSize(table, "32 KiB", 32 * 1024);
    measureSize(table, "16 MiB", 16 * 1024 * 1024);
}

} // namespace velmora::bench
