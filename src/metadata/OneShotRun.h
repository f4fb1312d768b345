#pragma once

#include "platform/ChildProcess.h"

#include <QStringList>

#include <chrono>

namespace morvak {

/// Runs the tool once over a file, which must be named by an absolute path, and gives what it prints on
/// standard output. Empty when it cannot be started, when it does not end its output within `limit` (it is
/// killed then) or when `quit` comes first. Blocks; any thread that may.
[[nodiscard]] QByteArray runToolOnce(const QString& toolPath, const QStringList& options,
                                     const QString& filePath, std::chrono::milliseconds limit,
                                     const Interrupt& quit);

}  // namespace morvak
