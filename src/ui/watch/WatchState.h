#pragma once

#include <QString>

namespace morvak {

/// What the watching of a folder comes down to for the user.
enum class WatchState {
    noFolder,
    watching,
    missing,  ///< the folder is away; watching resumes by itself
    stopped,
};

[[nodiscard]] WatchState watchState(const QString& watchPath, bool isWatching, bool folderMissing);

/// What the status line says, in Dutch. `refused` when the folder is there and could not be watched.
[[nodiscard]] QString statusText(WatchState state, bool refused = false);

/// Whether the user is offered to go on with the folder that is chosen.
[[nodiscard]] bool offersResume(WatchState state);

}  // namespace morvak
