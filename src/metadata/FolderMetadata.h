#pragma once

#include "metadata/FolderRows.h"

#include <functional>
#include <stop_token>

namespace morvak {

/// What the photos of a folder hold, and those of which that could not be told.
struct FolderMetadata {
    QList<SubjectAndDate> rows;  ///< in the order of their file names
    qsizetype unsendable = 0;    ///< photos whose names the tool would print changed
    qsizetype failed = 0;        ///< photos that the tool told nothing of

    [[nodiscard]] qsizetype total() const { return rows.size() + unsendable + failed; }
};

/// How a long reading is followed and given up.
struct ReadingControl {
    /// Photos that were asked about so far, of all; called on the thread that reads, the first time with 0.
    std::function<void(qsizetype done, qsizetype total)> progress;
    std::stop_token giveUp;
};

}  // namespace morvak
