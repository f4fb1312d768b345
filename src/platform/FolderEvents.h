#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace morvak {

/// What happened to one entry directly in a watched folder, or to the watching itself.
struct FolderEvent {
    enum class Kind {
        Created,    ///< a name appeared: a new file, or a link to one
        Written,    ///< somebody who had it open for writing closed it
        MovedHere,  ///< a name appeared by renaming
        MovedAway,  ///< a name disappeared by renaming
        Overflow,   ///< events were lost; no name
        FolderGone  ///< the folder was removed, moved or unmounted, nothing more will come; no name
    };
    Kind kind = Kind::Created;
    QString name;
    quint32 renameId = 0;  ///< the same for the MovedAway and the MovedHere of one renaming; else 0
};

using FolderEventHandler = std::function<void(const QList<FolderEvent>&)>;

/// The events of one folder, not of its subfolders, from the moment it was made until it is destroyed. Made,
/// used and destroyed on the main thread, where the handler is called.
class FolderEventSource {
public:
    virtual ~FolderEventSource() = default;

    /// Hands on now, from inside this call, what has happened so far.
    virtual void drain() = 0;
};

/// Watches `folder` with inotify; null when it cannot be watched.
[[nodiscard]] std::unique_ptr<FolderEventSource> watchFolder(const QString& folder,
                                                             FolderEventHandler handler);

}  // namespace morvak
