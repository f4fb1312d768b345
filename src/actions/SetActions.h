#pragma once

#include "actions/SetFields.h"

namespace morvak {

class FolderWatcher;
class ShootManager;

/// What becomes of shoots and sets, and of the set that new photos get, once it is decided: by a scan, a
/// click or a sheet. Main thread.

/// The set as it is stored now, in whatever shoot; none when it is gone.
[[nodiscard]] std::optional<SetData> storedSet(const ShootManager& shoots, QUuid id);

/// Finds or makes the set of a scanned or typed text and has photos tagged with it from now on. False, with a
/// diagnostic line, when the text holds no set.
bool takeScan(ShootManager& shoots, FolderWatcher& watcher, const QString& text);

/// Photos get this set from now on.
void activateSet(ShootManager& shoots, FolderWatcher& watcher, QUuid id);

/// A new first set of the active shoot; items without a name are dropped. Gives its id; none without a shoot.
std::optional<QUuid> addNewSet(ShootManager& shoots, const SetFields& fields);

/// Changes the fields and nothing else of a set, also of the one that photos get. False when it is gone.
bool saveSetEdit(ShootManager& shoots, FolderWatcher& watcher, QUuid id, const SetFields& fields);

/// Photos do not get a set any more that was deleted; they get none.
void deleteSet(ShootManager& shoots, FolderWatcher& watcher, QUuid id);
void deleteShoot(ShootManager& shoots, FolderWatcher& watcher, QUuid id);

}  // namespace morvak
