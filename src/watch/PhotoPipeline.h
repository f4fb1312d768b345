#pragma once

#include "platform/MainThread.h"
#include "watch/LateCards.h"
#include "watch/PhotoLooks.h"
#include "watch/PhotoRuns.h"
#include "watch/WaitingRoom.h"

#include <QThreadPool>

namespace morvak {

class FolderWatcher;
struct SetData;
struct Tagging;
struct WatcherServices;

/// Takes each scheduled photo through its run: wait until it is complete and free, look into it, let a set
/// card activate its set, take the set, have it written. Lives on the main thread, where all decisions are
/// made; looking and waiting happen elsewhere and come back as posts.
class PhotoPipeline {
public:
    PhotoPipeline(FolderWatcher& watcher, const WatcherServices& services, MainThread mainThread);
    ~PhotoPipeline();
    Q_DISABLE_COPY_MOVE(PhotoPipeline)

    /// Starts a run; false when the path has one.
    bool schedule(const QString& path);

    /// Tags a photo that was there already; the events of that write are recognised as our own. False, and
    /// `completion` is not called, when the path has a run.
    bool tagWith(const QString& path, const Tagging& tagging,
                 const std::function<void(bool tagged)>& completion);

    [[nodiscard]] bool isScheduled(const QString& path) const { return m_runs.contains(path); }

    void noteEvent(const QString& path, FolderEvent::Kind kind, bool own)
    {
        m_runs.noteEvent(path, kind, own);
    }

    /// Discards what has not started and tells what runs to end early.
    void prepareToQuit();

private:
    void sizeSettled(quint64 number, quint64 size);
    void released(quint64 number);
    void stillHeld(quint64 number);
    void waitsForReader(quint64 number);
    void photoRead(quint64 number, const PhotoReading& reading);
    void photoReadLate(quint64 number, const QString& path, const PhotoReading& reading);
    void readerAwayChanged(bool isAway);
    void takeSets();
    void takeSet(PhotoRun& run);
    [[nodiscard]] SetMoment moment() const;
    [[nodiscard]] std::optional<SetData> otherSetOn(const PhotoReading& reading) const;
    bool activateCard(const PhotoReading& reading);
    void discardCard(PhotoRun& run);
    void tag(PhotoRun& run, const SetData& set);
    void write(PhotoRun& run, const Tagging& tagging, const std::function<void(bool tagged)>& completion);
    void written(quint64 number, bool ok);
    bool rememberSignature(const PhotoRun& run);
    void noteDealtWith(const QString& path);
    void finish(quint64 number);
    void finishAndLookAgain(quint64 number);

    FolderWatcher& m_watcher;
    const WatcherServices& m_services;
    MainThread m_mainThread;
    PhotoRuns m_runs;
    LateCards m_lateCards;
    WaitingRoom m_waitingRoom;
    PhotoLooks m_looks;
    QThreadPool m_trashPool;
};

}  // namespace morvak
