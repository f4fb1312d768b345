#pragma once

#include <QtGlobal>

#include <chrono>

namespace morvak::bench {

/// Figures of a living process from /proc; the program ends when it is gone.

/// The most memory it ever had resident (VmHWM), in bytes.
[[nodiscard]] qint64 peakMemory(qint64 processId);

/// Processor time of the process and its children together, so far.
[[nodiscard]] std::chrono::milliseconds processorTime(qint64 processId);

/// How often its threads, and those of its children, have been woken.
[[nodiscard]] qint64 wakeUps(qint64 processId);

}  // namespace morvak::bench
