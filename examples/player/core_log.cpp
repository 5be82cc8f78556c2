#include "core_log.h"

#include <cstdio>

#include <QString>

namespace player {
namespace {

const QString corePrefix = QStringLiteral("[libretro]");

} // namespace

QtMessageHandler CoreLog::previous = nullptr;

CoreLog::CoreLog() { previous = qInstallMessageHandler(handle); }

CoreLog::~CoreLog() { qInstallMessageHandler(previous); }

void CoreLog::handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(corePrefix)) {
        const QString line = message.mid(corePrefix.size()).trimmed();
        std::fprintf(stderr, "core: %s\n", qPrintable(line));
    } else {
        previous(type, context, message);
    }
}

} // namespace player
