#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

namespace player {

// For as long as it lives, a line that the core logs comes out on standard error once, behind
// "core: " and without the empty line that the core's own line end would leave: it often holds the
// reason that no error code carries. All other messages go where they always went.
class CoreLog {
public:
    CoreLog();
    ~CoreLog();
    CoreLog(const CoreLog&) = delete;
    CoreLog& operator=(const CoreLog&) = delete;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);

    static QtMessageHandler previous;
};

} // namespace player
