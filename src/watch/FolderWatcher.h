#pragma once

#include "model/Shoot.h"
#include "platform/FolderWalk.h"
#include "platform/MainThread.h"
#include "watch/BacklogRun.h"
#include "watch/EventBatcher.h"
#include "watch/KnownPhotos.h"
#include "watch/LogEntry.h"
#include "watch/PhotoPipeline.h"
#include "watch/WatchedFolder.h"
#include "watch/WatcherServices.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace morvak {

class ShootManager;

/// Watches the folder into which the tethering software writes its photos, and has each new photo tagged with
/// the current set.
///
/// Lives on the main thread for the whole run. Every change of a published field is announced by its signal.
/// `addLog` may be called from any thread; everything else on the main thread only.
class FolderWatcher final : public QObject {
    Q_OBJECT

public:
    using NamedThumbnail = std::pair<QString, QImage>;  ///< file name, 120 x 80 pixels

    explicit FolderWatcher(WatcherServices services, QObject* parent = nullptr);
    ~FolderWatcher() override;

    [[nodiscard]] const QString& watchPath() const { return m_watchPath; }  ///< empty when none
    [[nodiscard]] bool isWatching() const { return m_folder.isOpen(); }
    /// The folder at `watchPath` is not there; watching begins by itself when it is.
    [[nodiscard]] bool folderMissing() const { return m_folder.isMissing(); }
    [[nodiscard]] qint64 taggedCount() const { return m_taggedCount; }
    [[nodiscard]] int setCount() const { return m_setCount; }  ///< sets activated by a photographed card
    [[nodiscard]] const QString& lastTaggedFile() const { return m_lastTaggedFile; }
    [[nodiscard]] const QList<LogEntry>& log() const { return m_log; }  ///< newest first, at most 200
    [[nodiscard]] const std::optional<SetData>& currentSet() const { return m_currentSet; }
    [[nodiscard]] const std::optional<QString>& justActivatedHeadline() const
    {
        return m_justActivatedHeadline;
    }
    /// Newest first, at most 5.
    [[nodiscard]] const QList<NamedThumbnail>& recentThumbnails() const { return m_recentThumbnails; }
    [[nodiscard]] bool qrDetectionEnabled() const { return m_qrDetectionEnabled; }
    [[nodiscard]] bool deleteQRCardAfterScan() const { return m_deleteQRCardAfterScan; }

    /// The store that all shoot operations go through. Without one they are left out: no folder is recorded,
    /// no card activates its set, no count is kept with a set, no photo carries a shoot. It must outlive the
    /// watcher.
    void setShootManager(ShootManager* shootManager) { m_shootManager = shootManager; }

    /// Photos are tagged with this set from now on. A set with another id shows its headline for a moment and
    /// sounds.
    void setCurrentSet(const std::optional<SetData>& set);
    void setQrDetectionEnabled(bool enabled);
    void setDeleteQRCardAfterScan(bool enabled);

    /// Watches the folder at an absolute path and records it in the active shoot. What lies there already
    /// counts as handled, also when the folder is missing and appears later. When it vanishes and comes back,
    /// the photos that arrived meanwhile are tagged. An empty path is ignored; a folder that is there and
    /// cannot be watched leaves `isWatching` false.
    void startWatching(const QString& path);

    /// Hears of no further photo until watching is started again; those under way finish. `watchPath` stays.
    void stopWatching();

    /// Follows the active shoot: watches its folder, or nothing when it has none. The folder that is watched
    /// or waited for already is left as it is.
    void applyWatchFolder(const std::optional<Shoot>& forShoot);

    /// Schedules the photo at an absolute path, unless it is no photo or under way already.
    void processNewFile(const QString& at);

    /// Tags the photos below the folder `in` (absolute) that carry no headline yet, each with the set of
    /// `shoot` that was active when it was last modified. Returns at once, with the run to observe and to
    /// give up; `completion` is called once, unless the watcher goes first. Several runs may overlap.
    std::shared_ptr<BacklogRun> processExistingFiles(const QString& in, const Shoot& shoot,
                                                     BacklogRun::Completion completion);

    /// Adds a line to the log, later, on the main thread.
    void addLog(const QString& message, LogType type);
    void clearLog();
    void appendThumbnail(const QImage& image, const QString& filename);

    /// First step of the quit: no event, no new run, no post reaches the watcher any more.
    void prepareToQuit();

Q_SIGNALS:
    void watchPathChanged();
    void isWatchingChanged();
    void folderMissingChanged();
    void taggedCountChanged();
    void setCountChanged();
    void lastTaggedFileChanged();
    void logChanged();
    void currentSetChanged();
    void justActivatedHeadlineChanged();
    void recentThumbnailsChanged();
    void qrDetectionEnabledChanged();
    void deleteQRCardAfterScanChanged();

private:
    friend class PhotoPipeline;  // the per-photo half of the watcher; it owns no published state

    void onFolderEvents(const QList<FolderEvent>& events);
    void takeEvent(const FolderEvent& event);
    void handOnDue();
    void handOn(const QString& path);
    void startBatchTimer();
    void folderLost();
    void folderBack(WatchedFolder::Return kind);
    void seedKnownPhotos(const QString& folder);
    [[nodiscard]] qint64 lostAtNs() const;
    void lookThroughFolder(qint64 newSinceNs);
    void takeFound(const QList<FoundFile>& photos);
    QString pathOf(const QString& name) const;
    QString asWatched(const QString& path) const;
    void setWatchPath(const QString& path);

    [[nodiscard]] BacklogHands backlogHands();
    void cardActivated(const SetData& set);
    void countTagged(const SetData& set);
    void photoTagged(const QString& name, const SetData& set, const QImage& thumbnail);
    void taggingFailed(const QString& name, const QString& line = QStringLiteral("❌ Tagging mislukt: "));
    void setTaggedCount(qint64 count);
    void setJustActivatedHeadline(const std::optional<QString>& headline);

    WatcherServices m_services;
    ShootManager* m_shootManager = nullptr;

    QString m_watchPath;
    qint64 m_taggedCount = 0;
    int m_setCount = 0;
    QString m_lastTaggedFile;
    QList<LogEntry> m_log;
    std::optional<SetData> m_currentSet;
    std::optional<QString> m_justActivatedHeadline;
    QList<NamedThumbnail> m_recentThumbnails;
    bool m_qrDetectionEnabled = true;
    bool m_deleteQRCardAfterScan = false;

    WatchedFolder m_folder;
    std::chrono::steady_clock::time_point m_lostAt;
    qint64 m_lostAtNs = 0;    // the same as a change time of files
    qint64 m_newSinceNs = 0;  // as a change time: for the next photos that looking through the folder finds
    quint64 m_lookNumber = 0;
    EventBatcher m_batcher;
    OwnRenames m_ownRenames;
    QTimer m_batchTimer;
    QTimer m_bannerTimer;
    KnownPhotos m_known;
    MainThread m_mainThread;
    PhotoPipeline m_pipeline;
    QList<std::shared_ptr<BacklogRun>> m_backlogRuns;
};

}  // namespace morvak
