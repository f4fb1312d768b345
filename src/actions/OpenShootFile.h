#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace morvak {

class ShootManager;

/// A whole file; none, with a diagnostic line, when it is no ordinary file, too large for a shoot, or cannot
/// be read.
[[nodiscard]] std::optional<QByteArray> readShootFile(const QString& path);

/// The shoot in the file at an absolute path becomes a new, active one. False, with a diagnostic line, when
/// it cannot be read or holds none. Main thread; blocks while it reads.
bool openShootFile(ShootManager& shoots, const QString& path);

}  // namespace morvak
