#include "driver/Pacer.h"

#include <QCoreApplication>

#include <algorithm>

namespace morvak::driver {

Pacer::Pacer(std::chrono::milliseconds wholeTime)
{
    m_alarm.setSingleShot(true);
    connect(&m_alarm, &QTimer::timeout, this, [this] { m_timeUp = true; });
    m_alarm.start(wholeTime);
}

bool Pacer::waitUntil(const std::function<bool()>& condition)
{
    while (!condition()) {
        if (m_stopped || m_timeUp)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool Pacer::waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds atMost)
{
    bool over = false;
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.callOnTimeout([&over] { over = true; });
    alarm.start(std::max(atMost, std::chrono::milliseconds(0)));
    bool met = false;
    return waitUntil([&] { return (met = condition()) || over; }) && met;
}

bool Pacer::pause(std::chrono::milliseconds time)
{
    (void)waitUntil([] { return false; }, time);
    return !m_stopped && !m_timeUp;
}

void Pacer::stop()
{
    m_stopped = true;
}

}  // namespace morvak::driver
