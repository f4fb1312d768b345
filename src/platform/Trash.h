#pragma once

#include <QString>

namespace morvak {

/// Moves a file to the user's Trash (freedesktop.org Trash specification). False when it could not be moved;
/// it is then where it was. Any thread; may take long when the Trash is on another disk.
bool moveToTrash(const QString& path);

}  // namespace morvak
