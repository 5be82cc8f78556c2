#include "core_log.h"

#include <cstdio>

namespace player {
namespace {

const QString corePrefix = QStringLiteral("[libretro]");

} // namespace

CoreLog* CoreLog::active = nullptr;

CoreLog::CoreLog() {
    active = this;
    previous = qInstallMessageHandler(handle);
}

CoreLog::~CoreLog() {
    qInstallMessageHandler(previous);
    active = nullptr;
}

void CoreLog::print() const {
    const std::lock_guard lock(mutex);
    if (lines.empty()) {
        return;
    }
    std::fputs("The core said:\n", stderr);
    for (const QString& line : lines) {
        std::fprintf(stderr, "  %s\n", qPrintable(line));
    }
}

void CoreLog::handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(corePrefix)) {
        active->add(message.mid(corePrefix.size()).trimmed());
    } else {
        active->previous(type, context, message);
    }
}

void CoreLog::add(const QString& line) {
    const std::lock_guard lock(mutex);
    lines.push_back(line);
    if (lines.size() > lineLimit) {
        lines.pop_front();
    }
}

} // namespace player
