#pragma once

#include <QString>

namespace morvak {

/// The temporary files of an exiftool that was killed: it refuses to touch a photo while one lies beside it.
/// Those that somebody has open for writing stay. Not while a tool of this process writes.

/// Removes the one of this photo (absolute path).
void removeLeftover(const QString& photoPath);

/// Removes those of all photos directly in a folder. One that is older than its photo stays: another
/// program may have died while it copied that file's content into the photo.
void removeLeftovers(const QString& folder);

}  // namespace morvak
