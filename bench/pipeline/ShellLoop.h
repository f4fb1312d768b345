#pragma once

#include "BenchShoot.h"

#include <QProcess>

namespace morvak::bench {

/// What a photographer with a shell would use instead: inotifywait (inotify-tools) on the folder, one
/// exiftool a photo. Runs from its making to its end. Main thread.
class ShellLoop {
public:
    /// Returns when it watches.
    explicit ShellLoop(const QDir& folder);
    ~ShellLoop();

private:
    QProcess m_process;
};

}  // namespace morvak::bench
