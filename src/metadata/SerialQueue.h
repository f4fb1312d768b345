#pragma once

#include <QObject>
#include <QThread>

#include <functional>
#include <mutex>

namespace morvak {

/// A thread that runs entries one after another, in the order in which they were posted.
///
/// Every entry that was accepted runs, also those that wait when the queue is closed.
class SerialQueue {
public:
    explicit SerialQueue(const QString& name);

    /// Closes and waits.
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    /// False, and the entry is dropped, when the queue has been closed. Any thread.
    [[nodiscard]] bool post(std::function<void()> entry);

    /// Accepts nothing more; `last` runs after all other entries and ends the thread. Only the first call
    /// counts. Any thread.
    void close(std::function<void()> last = {});

    /// Waits for the thread to end. Any thread but its own.
    void wait();

private:
    QThread m_thread;
    QObject m_context;  // lives on m_thread; the entries are its events
    std::mutex m_gate;
    bool m_closed = false;
};

}  // namespace morvak
