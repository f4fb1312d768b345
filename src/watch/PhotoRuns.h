#pragma once

#include "platform/FolderEvents.h"
#include "watch/PhotoReading.h"

#include <QHash>
#include <QString>

#include <map>

namespace morvak {

/// One photo on its way from its first event to its tag.
struct PhotoRun {
    enum class Stage {
        Settling,        ///< waiting for a stable size
        Locked,          ///< waiting until nobody holds it
        Reading,         ///< preview and recognition, in the pool
        AwaitingReader,  ///< rewritten, and the metadata tool does not answer now
        Ready,           ///< read; waiting for earlier photos to take their set
        Writing,         ///< its request is with the metadata tool
        Trashing         ///< a recognised card on its way to the Trash
    };
    quint64 number = 0;  ///< in the order of scheduling
    QString path;
    Stage stage = Stage::Settling;
    PhotoReading reading;
    bool closedSinceLocked = false;  ///< somebody finished writing it while it waited for its lock or its tag
    bool tagInPlace = false;         ///< the tool has put its result in place of the photo
    bool changedAfterTagging = false;  ///< somebody else changed it after that
};

/// The runs under way, at most one a path, and the order in which they take their set: as scheduled. A photo
/// that is still being read holds up those scheduled after it; one that is settling or locked, or waits for
/// the metadata tool, holds up nobody.
class PhotoRuns {
public:
    /// Null when the path has a run already. Pointers stay good until the run is removed.
    PhotoRun* add(const QString& path);
    [[nodiscard]] PhotoRun* find(quint64 number);
    [[nodiscard]] bool contains(const QString& path) const { return m_scheduledPaths.contains(path); }
    void remove(quint64 number);

    /// Notes an event of a path that may have a run. `own`: the tool's renaming of its result.
    void noteEvent(const QString& path, FolderEvent::Kind kind, bool own);

    /// The run whose turn it is to take its set; null when there is none, or while an earlier one is read.
    [[nodiscard]] PhotoRun* nextToTakeSet();

private:
    std::map<quint64, PhotoRun> m_runs;
    QHash<QString, quint64> m_scheduledPaths;
    quint64 m_lastNumber = 0;
};

}  // namespace morvak
