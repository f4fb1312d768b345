#pragma once

#include "demo/MorvakProcess.h"
#include "demo/Pacer.h"
#include "demo/Profile.h"

#include <QDir>

namespace morvak::bench {

/// One run of the real program with a profile and a photo folder of its own, started when the object is made,
/// and ended with it. Main thread.
class MorvakRun {
public:
    /// Returns when the program watches; `wholeTime` limits everything that waits on `pacer()`.
    MorvakRun(const QString& program, std::chrono::milliseconds wholeTime);

    /// Makes the bench's set the active one.
    void activateSet();

    [[nodiscard]] QDir folder() const { return QDir(m_profile.photoFolder()); }
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    [[nodiscard]] demo::Pacer& pacer() { return m_pacer; }

    /// From the start of the process to its line that it watches.
    [[nodiscard]] std::chrono::milliseconds startTime() const { return m_startTime; }

private:
    demo::Profile m_profile;
    demo::Pacer m_pacer;
    demo::MorvakProcess m_process;
    std::chrono::milliseconds m_startTime{0};
};

}  // namespace morvak::bench
