#include <thread>

#include "core_host/host_test.h"

namespace velmora::test {

using Threads = HostTest;

// The core's counter is a plain int: an entry that overlaps another is a data race.
TEST_F(Threads, StatesMoveBetweenFramesNeverDuringOne) {
    int inside = 0;
    int most = 0;
    const auto enter = [&] {
        most = std::max(most, ++inside);
        std::this_thread::yield();
        --inside;
    };
    for (const char* entry : {"retro_run", "retro_reset", "retro_serialize", "retro_unserialize"})
        core.on(entry, enter);
    start();
    const LogCapture quiet;
    std::thread saver([&] {
        for (int i = 0; i < 50; ++i) {
            EXPECT_TRUE(host.saveState(scratch / "state"));
            EXPECT_TRUE(host.loadState(scratch / "state"));
        }
    });
    for (int frame = 0; frame < 2000; ++frame) {
        host.runFrame();
        if (frame % 100 == 0)
            host.reset();
    }
    saver.join();
    EXPECT_EQ(most, 1);
}

} // namespace velmora::test
