#pragma once

#include "platform/FolderHandle.h"

#include <QString>

namespace morvak {

/// Copies a regular file (no symbolic link) under a plain name into another folder; empty when the copy is
/// there, the reason in Dutch otherwise.
///
/// The copy grows under a hidden temporary name that no program takes for a photo, reaches the disk, and then
/// takes the place of a file of that name in one step: until then, and after any failure, the old file is
/// there. A symbolic link is replaced, not followed; anything else that is no regular file is in the way. The
/// copy keeps the modification time and the access rights where its file system can. Uses the file system's
/// own copying where there is one. A source that changes meanwhile gives no copy. Blocks; any thread.
[[nodiscard]] QString copyFile(const FolderHandle& from, const QString& name, const FolderHandle& to,
                               const QString& newName);

/// Removes the temporary files of copies that were killed: those that nobody has open. Any thread.
void removeUnfinishedCopies(const QString& folder);

}  // namespace morvak
