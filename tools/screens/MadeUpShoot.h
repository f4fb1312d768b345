#pragma once

namespace morvak {

class FolderWatcher;
class ShootManager;

/// Fills a store and a watcher as a working day leaves them: a shoot of this many sets, an active one, photos
/// tagged and one that failed. None at all for 0. Main thread; the log follows with the event loop.
void fillIn(ShootManager& shoots, FolderWatcher& watcher, int sets);

}  // namespace morvak
