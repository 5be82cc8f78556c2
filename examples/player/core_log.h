#pragma once

#include <cstddef>
#include <deque>
#include <mutex>

#include <QString>

class QMessageLogContext;

namespace player {

// Keeps the last lines that the core logged, to be shown beside an error: they often hold the
// reason that no error code carries. All other messages go where they always went.
class CoreLog {
public:
    CoreLog();
    ~CoreLog();
    CoreLog(const CoreLog&) = delete;
    CoreLog& operator=(const CoreLog&) = delete;

    // Writes the lines to standard error.
    void print() const;

private:
    static constexpr std::size_t lineLimit = 20;

    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
    void add(const QString& line);

    static CoreLog* active;

    QtMessageHandler previous;
    // A core may log from threads of its own.
    mutable std::mutex mutex;
    std::deque<QString> lines;
};

} // namespace player
