#pragma once

#include "platform/FolderEvents.h"
#include "platform/FolderFollower.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace morvak {

/// What a watched folder needs of the operating system; tests script it.
struct FolderSources {
    std::function<std::unique_ptr<FolderEventSource>(const QString& folder, FolderEventHandler handler)>
        openEvents = watchFolder;
    std::function<std::optional<FolderPlace>(const QString& path)> find = findFolder;
    std::function<std::unique_ptr<FolderFollower>(const QString& path, FolderPlaceHandler handler)> follow =
        followFolder;
};

/// The folder at a path and its events, through the folder's absences: when it was moved, removed or
/// unmounted, or the path has come to lead to another folder, the events end and begin again once a folder is
/// there. Main thread.
class WatchedFolder {
public:
    enum class Return {
        FirstSeen,  ///< it was missing from the beginning
        Again       ///< a folder at this path was watched before
    };
    struct Outcomes {
        FolderEventHandler events;
        std::function<void()> lost;
        std::function<void(Return)> back;  ///< events come again already
    };

    /// `lookInterval`: between two looks for a missing folder.
    WatchedFolder(const FolderSources& sources, std::chrono::milliseconds lookInterval, Outcomes outcomes);

    /// Watches the folder at this absolute path, or waits for it when there is none. Neither is the case
    /// afterwards when there is one whose events cannot be had.
    void open(const QString& path);
    void close();

    [[nodiscard]] bool isOpen() const { return m_events != nullptr; }
    [[nodiscard]] bool isMissing() const { return m_isMissing; }

    /// Hands on now what has happened so far.
    void drain();

private:
    bool openEvents();
    void eventsCame(const QList<FolderEvent>& events);
    void placeTold(const std::optional<FolderPlace>& now);
    void lose();
    void comeBack(const FolderPlace& now);

    const FolderSources& m_sources;
    Outcomes m_outcomes;
    QString m_path;
    std::unique_ptr<FolderEventSource> m_events;
    std::unique_ptr<FolderFollower> m_follower;
    std::optional<FolderPlace> m_place;  // of the folder that is watched, or was last
    bool m_isMissing = false;
    QTimer m_lookTimer;  // runs only while the folder is missing
};

}  // namespace morvak
