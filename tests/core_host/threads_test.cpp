#include <atomic>
#include <thread>

#include "core_host/host_test.h"

namespace velmora::test {

using Threads = HostTest;

// Neither the core nor its counter knows of threads: an entry that overlaps another is a data race.
TEST_F(Threads, OneOperationEntersTheCoreAtATime) {
    int inside = 0;
    int most = 0;
    const auto enter = [&] {
        most = std::max(most, ++inside);
        std::this_thread::yield();
        --inside;
    };
    for (const char* entry :
         {"retro_init", "retro_load_game", "retro_get_memory_size", "retro_run", "retro_reset",
          "retro_serialize", "retro_unserialize", "retro_unload_game", "retro_deinit"})
        core.on(entry, enter);
    host.setDirectories("", scratch.path());
    start();
    const LogCapture quiet;
    std::atomic<bool> done = false;
    std::thread player([&] {
        while (!done) {
            host.runFrame();
            host.reset();
        }
    });
    for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(host.saveState(scratch / "state"));
        EXPECT_TRUE(host.loadState(scratch / "state"));
        start();
    }
    done = true;
    player.join();
    host.unload();
    EXPECT_EQ(most, 1);
}

} // namespace velmora::test
