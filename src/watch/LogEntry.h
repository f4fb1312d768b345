#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

namespace morvak {

enum class LogType { info, success, warning, error };

/// One line of the watcher's log.
struct LogEntry {
    QUuid id;
    QDateTime time;
    QString message;  ///< the full line, symbol included
    LogType type = LogType::info;
};

}  // namespace morvak
