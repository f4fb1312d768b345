#pragma once

#include "platform/MainThread.h"
#include "platform/PhotoFile.h"

#include <QThread>

#include <chrono>
#include <functional>
#include <memory>

namespace morvak {

/// How long a photo may take to become complete and free.
struct WaitLimits {
    std::chrono::milliseconds interval{300};  ///< before each look at the size, and between two lock tries
    int sizeChecks = 100;
    int lockTries = 34;
};

/// What the waiting room asks of the file system; tests answer for it.
struct FileProbe {
    std::function<std::optional<FileState>(const QString&)> state = regularFileState;
    std::function<QSet<QString>(const QStringList&)> held = heldForWriting;
};

/// The one place where photos wait that are settling or locked, on a thread of its own. Each has its own due
/// times; nothing runs while nobody waits. Outcomes are posted to the main thread. Entries are per run.
class WaitingRoom {
public:
    struct Outcomes {
        std::function<void(quint64 run, quint64 size)> settled;  ///< or the last size, after all checks
        std::function<void(quint64 run)> gone;                   ///< no regular file any more
        std::function<void(quint64 run)> released;               ///< nobody has it open for writing
        std::function<void(quint64 run)> stillHeld;              ///< after all tries
    };

    WaitingRoom(WaitLimits limits, FileProbe probe, MainThread mainThread, Outcomes outcomes);
    ~WaitingRoom();  ///< sends everybody away without an outcome
    Q_DISABLE_COPY_MOVE(WaitingRoom)

    /// Waits until the size is not zero and the same in two looks in a row. Any thread.
    void settle(quint64 run, const QString& path);

    /// Waits until nobody holds the file; the first try is made at once. Any thread.
    void awaitRelease(quint64 run, const QString& path);

private:
    class Worker;

    QThread m_thread;
    std::unique_ptr<Worker> m_worker;
};

}  // namespace morvak
