#include "ui/scan/KeyClock.h"

#include <algorithm>

namespace morvak {

KeyClock::Time KeyClock::timeOf(quint64 stamp, qint64 arrival)
{
    const bool bothStamped = stamp != 0 && m_stamp != 0;
    const Time time = bothStamped ? m_stampTime + Time(qint32(quint32(stamp) - quint32(m_stamp)))
                                  : m_time + Time(arrival - m_arrival);
    m_time = std::max(m_time, time);
    m_arrival = arrival;
    if (stamp != 0) {
        m_stamp = stamp;
        m_stampTime = m_time;
    }
    return m_time;
}

}  // namespace morvak
