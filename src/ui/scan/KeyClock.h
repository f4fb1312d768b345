#pragma once

#include <QtGlobal>

#include <chrono>

namespace morvak {

/// When keys were pressed, on one scale. The display server's stamps tell the true distances also when the
/// main thread was busy and the keys queued up; keys without one are told by their arrival.
class KeyClock {
public:
    using Time = std::chrono::milliseconds;

    /// `stamp` in milliseconds of 32 bits, which begin again every 50 days; 0 for none. `arrival` in
    /// milliseconds of a monotonic clock. Never before the time told last. Pure.
    [[nodiscard]] Time timeOf(quint64 stamp, qint64 arrival);

private:
    Time m_time{};
    qint64 m_arrival = 0;
    quint64 m_stamp = 0;
    Time m_stampTime{};
};

}  // namespace morvak
