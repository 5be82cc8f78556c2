#pragma once

#include <QString>

#include <gtest/gtest.h>
#include <velmora/libretro_host.h>

#include "support/probe_core.h"
#include "support/scratch_directory.h"

namespace velmora::test {

// Takes Qt's log for as long as it lives, each line behind the letter of its level.
class LogCapture {
public:
    LogCapture() {
        lines.clear();
        previous = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext&, const QString& message) {
                const char level = type == QtInfoMsg ? 'I' : type == QtWarningMsg ? 'W' : '?';
                lines.push_back(std::string{level, ' '} + message.toStdString());
            });
    }
    ~LogCapture() { qInstallMessageHandler(previous); }

    inline static std::vector<std::string> lines;

private:
    QtMessageHandler previous;
};

using Lines = std::vector<std::string>;

// The form in which cores and messages see a path.
inline std::string utf8(const std::filesystem::path& path) {
    const auto text = path.generic_u8string();
    return {text.begin(), text.end()};
}

// A host, the probe core it runs and a small game, in a directory of the test's own.
class HostTest : public testing::Test {
protected:
    HostTest() { writeFile(game, "the whole game"); }

    void start() {
        ASSERT_TRUE(host.loadCore(core.path)) << host.lastError;
        ASSERT_TRUE(host.loadGame(game)) << host.lastError;
    }

    const ScratchDirectory scratch;
    const std::filesystem::path game = scratch / "game.bin";
    ProbeCore core;
    LibretroHost host;
};

} // namespace velmora::test
