#pragma once

#include "platform/FolderPlace.h"

#include <QString>

#include <optional>

namespace morvak {

/// What decides whether a RAW rename may start. A place is none where the folder cannot be opened.
struct RenameFacts {
    QString source;  ///< empty until one is chosen
    QString destination;
    std::optional<FolderPlace> sourcePlace;
    std::optional<FolderPlace> destinationPlace;
    std::optional<FolderPlace> watchedPlace;  ///< none while nothing is watched
    bool isRunning = false;
};

enum class RenameObstacle {
    none,
    running,
    noSource,
    sourceGone,
    noDestination,
    destinationGone,  ///< making it anew could fill the disk on which a lost drive was mounted
    sameFolder,
    destinationWatched,  ///< the copies would be taken for new photos and tagged with the active set
};

/// The first that stands in the way. Pure.
[[nodiscard]] RenameObstacle renameObstacle(const RenameFacts& facts);

/// In Dutch, for the user; empty for none.
[[nodiscard]] QString obstacleText(RenameObstacle obstacle);

/// Whether something is wrong, rather than not done yet.
[[nodiscard]] bool isWrong(RenameObstacle obstacle);

}  // namespace morvak
