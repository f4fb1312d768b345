#pragma once

#include "driver/MorvakProcess.h"

#include <QDir>

namespace morvak::bench {

/// One run of the real program for a measurement, started when the object is made and ended with it; this
/// program ends when it does not run. Main thread.
class TimedRun {
public:
    /// Returns when it watches; `wholeTime` limits everything that waits on `pacer()`.
    TimedRun(const QString& program, std::chrono::milliseconds wholeTime);

    /// Makes the bench's set the active one.
    void activateSet();

    [[nodiscard]] QDir folder() const { return QDir(m_process.folder()); }
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    [[nodiscard]] driver::Pacer& pacer() { return m_pacer; }

    /// From the start of the process to its line that it watches.
    [[nodiscard]] std::chrono::milliseconds startTime() const { return m_startTime; }

private:
    driver::Pacer m_pacer;
    driver::MorvakProcess m_process;
    std::chrono::milliseconds m_startTime{0};
};

}  // namespace morvak::bench
