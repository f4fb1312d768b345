#pragma once

namespace morvak {

class FolderWatcher;
class StoreSaver;

/// From now on the watcher's log says once that a store cannot be saved, and once that it can again.
void reportSaving(const StoreSaver& saver, FolderWatcher& watcher);

/// For the quit, when the log takes nothing any more: a diagnostic line when the store is still not saved.
void reportUnsaved(const StoreSaver& saver);

}  // namespace morvak
