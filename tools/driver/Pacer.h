#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace morvak::driver {

/// Lets a straight-line script wait while the event loop goes on, until the whole time is up or somebody says
/// stop. Main thread.
class Pacer final : public QObject {
    Q_OBJECT

public:
    explicit Pacer(std::chrono::milliseconds wholeTime);

    /// False when the waiting ended before the condition came true.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

    /// As above, and also false after `atMost`.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds atMost);

    /// False when it was cut short.
    [[nodiscard]] bool pause(std::chrono::milliseconds time);

    /// Every wait, now and later, ends at once.
    void stop();

    [[nodiscard]] bool wasStopped() const { return m_stopped; }
    [[nodiscard]] bool isTimeUp() const { return m_timeUp; }

private:
    QTimer m_alarm;
    // Set by the alarm itself: a timer may fire before a deadline read from the clock, and nothing would wake
    // the event loop a second time.
    bool m_timeUp = false;
    bool m_stopped = false;
};

}  // namespace morvak::driver
