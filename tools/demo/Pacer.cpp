#include "demo/Pacer.h"

#include <QCoreApplication>

namespace morvak::demo {

Pacer::Pacer(std::chrono::milliseconds wholeTime) : m_deadline(wholeTime)
{
    m_alarm.setSingleShot(true);
    m_alarm.start(wholeTime);
}

bool Pacer::waitUntil(const std::function<bool()>& condition)
{
    while (!condition()) {
        if (m_stopped || isTimeUp())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool Pacer::waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds atMost)
{
    const QDeadlineTimer deadline(atMost);
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.start(atMost);
    bool met = false;
    return waitUntil([&] { return (met = condition()) || deadline.hasExpired(); }) && met;
}

bool Pacer::pause(std::chrono::milliseconds time)
{
    const QDeadlineTimer deadline(time, Qt::PreciseTimer);
    (void)waitUntil([&deadline] { return deadline.hasExpired(); }, time);
    return deadline.hasExpired();
}

void Pacer::stop()
{
    m_stopped = true;
}

}  // namespace morvak::demo
