#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <utility>

namespace morvak {

/// Does its work a moment after it was asked to, once for all that asked meanwhile, so that a hundred changes
/// a second cost a screen twenty refreshes. Main thread.
class CoalescedCall final : public QObject {
public:
    explicit CoalescedCall(std::function<void()> work,
                           std::chrono::milliseconds delay = std::chrono::milliseconds(50))
        : m_work(std::move(work))
    {
        m_timer.setSingleShot(true);
        m_timer.setInterval(delay);
        m_timer.callOnTimeout(this, [this] { m_work(); });
    }

    /// Never puts off what was asked for before.
    void ask()
    {
        if (!m_timer.isActive())
            m_timer.start();
    }

private:
    std::function<void()> m_work;
    QTimer m_timer;
};

}  // namespace morvak
