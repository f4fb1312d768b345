#pragma once

#include "platform/ChildProcess.h"

#include <QStringList>

#include <chrono>

namespace morvak {

/// Runs the tool once for `arguments`, which it takes as they are: a file must be named by an absolute path.
/// What it prints on standard output; empty when it cannot be started, does not end its output within
/// `limit` (it is killed) or `quit` comes first. Blocks; any thread that may.
[[nodiscard]] QByteArray runToolOnce(const QString& toolPath, const QStringList& options,
                                     const QString& filePath, std::chrono::milliseconds limit,
                                     const Interrupt& quit);

}  // namespace morvak
