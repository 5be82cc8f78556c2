#include <atomic>
#include <thread>

#include "core_host/host_test.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace velmora::test {
namespace {

// What a debugger's monitor sees of this process: it owns the channel's memory and its two events.
class DebuggerMonitor {
public:
    DebuggerMonitor() {
        reader = std::thread([this] { read(); });
    }
    ~DebuggerMonitor() {
        leave();
        UnmapViewOfFile(message);
        for (HANDLE handle : {ready, written, memory})
            CloseHandle(handle);
    }
    DebuggerMonitor(const DebuggerMonitor&) = delete;
    DebuggerMonitor& operator=(const DebuggerMonitor&) = delete;

    // All that was written so far; each write has been taken when it returns to the writer's next.
    Lines finish() {
        leave();
        return writes;
    }

private:
    struct Message {
        DWORD process;
        char text[4096 - sizeof(DWORD)];
    };

    void read() {
        SetEvent(ready);
        while (WaitForSingleObject(written, 500) == WAIT_OBJECT_0 || !leaving) {
            if (message->process == GetCurrentProcessId() && message->text[0] != '\0')
                writes.emplace_back(message->text);
            message->text[0] = '\0';
            SetEvent(ready);
        }
    }

    void leave() {
        leaving = true;
        if (reader.joinable())
            reader.join();
    }

    HANDLE ready = CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_BUFFER_READY");
    HANDLE written = CreateEventW(nullptr, FALSE, FALSE, L"DBWIN_DATA_READY");
    HANDLE memory = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                       sizeof(Message), L"DBWIN_BUFFER");
    Message* message =
        static_cast<Message*>(MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(Message)));
    std::atomic<bool> leaving = false;
    Lines writes;
    std::thread reader;
};

using DebugOutput = HostTest;

TEST_F(DebugOutput, ReachesTheDebuggerPrefixFirst) {
    ASSERT_TRUE(host.loadCore(core.path));
    retro_log_callback log = {};
    ASSERT_TRUE(core->environment(RETRO_ENVIRONMENT_GET_LOG_INTERFACE, &log));
    const LogCapture capture;
    DebuggerMonitor monitor;
    log.log(RETRO_LOG_DEBUG, "%s %d\n", "\"é\"", 7);
    log.log(RETRO_LOG_ERROR, "%s", std::string(2000, 'x').c_str());
    EXPECT_EQ(monitor.finish(),
              (Lines{"[libretro] ", "\"é\" 7\n", "[libretro] ", std::string(1023, 'x')}));
}

} // namespace
} // namespace velmora::test
