#include "watch/FolderWatcher.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/FolderHandle.h"
#include "store/ShootManager.h"
#include "watch/PhotoTypes.h"

#include <QDateTime>
#include <QThreadPool>

#include <algorithm>
#include <limits>

namespace morvak {

using Clock = std::chrono::steady_clock;

namespace {

// Change times since which photos are new.
constexpr qint64 everything = std::numeric_limits<qint64>::min();
constexpr qint64 nothing = std::numeric_limits<qint64>::max();

QString pathBelow(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

qint64 wallClockNs()
{
    return QDateTime::currentMSecsSinceEpoch() * 1'000'000;
}

/// None when the folder cannot be listed.
std::optional<QList<FoundFile>> photosIn(const QString& folder, const FileProbe& files)
{
    const std::optional<QStringList> names = folderEntries(folder);
    if (!names)
        return std::nullopt;
    QList<FoundFile> photos;
    for (const QString& name : *names) {
        const QString path = pathBelow(folder, name);
        if (!isPhotoName(name))
            continue;
        if (const std::optional<FileState> state = files.state(path))
            photos.append({path, *state});
    }
    return photos;
}

}  // namespace

FolderWatcher::FolderWatcher(WatcherServices services, QObject* parent)
    : QObject(parent),
      m_services(std::move(services)),
      m_folder(m_services.folder, m_services.times.lookInterval,
               {[this](const QList<FolderEvent>& events) { onFolderEvents(events); },
                [this] { folderLost(); }, [this](WatchedFolder::Return kind) { folderBack(kind); }}),
      m_batcher(m_services.times.eventLatency),
      m_pipeline(*this, m_services, m_mainThread)
{
    m_batchTimer.setSingleShot(true);
    connect(&m_batchTimer, &QTimer::timeout, this, &FolderWatcher::handOnDue);
    m_bannerTimer.setSingleShot(true);
    m_bannerTimer.setInterval(m_services.times.bannerTime);
    connect(&m_bannerTimer, &QTimer::timeout, this, [this] { setJustActivatedHeadline(std::nullopt); });
}

FolderWatcher::~FolderWatcher()
{
    prepareToQuit();
}

void FolderWatcher::prepareToQuit()
{
    m_folder.close();
    m_batchTimer.stop();
    m_mainThread.close();
    m_pipeline.prepareToQuit();
    for (const std::shared_ptr<BacklogRun>& run : std::as_const(m_backlogRuns))
        run->giveUp();
}

void FolderWatcher::startWatching(const QString& path)
{
    if (path.isEmpty())
        return;
    stopWatching();
    setWatchPath(path);
    if (m_shootManager && m_shootManager->activeShootId())
        m_shootManager->setWatchFolder(path, *m_shootManager->activeShootId());
    m_known.clear();
    m_newSinceNs = everything;
    ++m_lookNumber;
    if (path.startsWith(u'/'))
        m_folder.open(path);
    if (isWatching()) {
        addLog(QStringLiteral("Watching: ") + path, LogType::info);
        m_services.clearUp(path);
        seedKnownPhotos(path);
        Q_EMIT isWatchingChanged();
    } else if (folderMissing()) {
        addLog(QStringLiteral("⚠️ Map niet gevonden: ") + path +
                   QStringLiteral(" — Morvak begint vanzelf zodra de map er is"),
               LogType::warning);
        Q_EMIT folderMissingChanged();
    } else {
        diagnostic(QStringLiteral("⚠️ Map kan niet gevolgd worden: ") + path);
    }
}

/// What lies in the folder already counts as handled. The folder is watched before it is listed: a photo that
/// has had an event since is under way by now, and is no old one.
void FolderWatcher::seedKnownPhotos(const QString& folder)
{
    const std::optional<QList<FoundFile>> present = photosIn(folder, m_services.files);
    m_newSinceNs = present ? everything : nothing;
    m_folder.drain();
    for (const FoundFile& photo : present.value_or(QList<FoundFile>())) {
        if (!m_pipeline.isScheduled(photo.path))
            m_known.noteTagged(photo.path, photo.state);
    }
}

void FolderWatcher::applyWatchFolder(const std::optional<Shoot>& forShoot)
{
    qint64 tagged = 0;
    for (const SetData& set : forShoot ? forShoot->sets : QList<SetData>())
        tagged += set.taggedCount;
    setTaggedCount(tagged);
    const QString folder = forShoot ? forShoot->watchFolderPath.value_or(QString()) : QString();
    if (folder.isEmpty()) {
        stopWatching();
        setWatchPath(QString());
    } else if (folder != m_watchPath || !(isWatching() || folderMissing())) {
        startWatching(folder);
    }
}

void FolderWatcher::stopWatching()
{
    const bool wasWatching = isWatching();
    const bool wasMissing = folderMissing();
    m_batchTimer.stop();
    m_batcher.clear();
    m_folder.close();
    if (wasWatching)
        Q_EMIT isWatchingChanged();
    if (wasMissing)
        Q_EMIT folderMissingChanged();
}

void FolderWatcher::onFolderEvents(const QList<FolderEvent>& events)
{
    bool missed = false;
    for (const FolderEvent& event : events) {
        missed |= event.kind == FolderEvent::Kind::Overflow;
        takeEvent(event);
    }
    if (missed) {
        diagnostic(QStringLiteral("⚠️ Mapgebeurtenissen gemist — map opnieuw bekeken: ") + m_watchPath);
        lookThroughFolder(everything);
    }
    startBatchTimer();
}

void FolderWatcher::takeEvent(const FolderEvent& event)
{
    const bool own = m_ownRenames.isOwn(event);
    if (event.kind == FolderEvent::Kind::MovedAway || !isPhotoName(event.name))
        return;
    const QString path = pathOf(event.name);
    m_pipeline.noteEvent(path, event.kind, own);
    if (m_batcher.accept(path, Clock::now()))
        handOn(path);
}

void FolderWatcher::startBatchTimer()
{
    if (const auto due = m_batcher.nextDue())
        m_batchTimer.start(std::max(std::chrono::ceil<std::chrono::milliseconds>(*due - Clock::now()),
                                    std::chrono::milliseconds(0)));
}

void FolderWatcher::handOnDue()
{
    for (const QString& path : m_batcher.takeDue(Clock::now()))
        handOn(path);
    startBatchTimer();
}

/// Drops what is no file, and what lies there just as it was last seen: the echo of our own writing.
void FolderWatcher::handOn(const QString& path)
{
    const std::optional<FileState> state = m_services.files.state(path);
    if (!state)
        return;
    if (!m_known.isTaggedAs(path, *state))
        processNewFile(path);
}

void FolderWatcher::folderLost()
{
    m_batchTimer.stop();
    m_batcher.clear();
    m_lostAt = Clock::now();
    m_lostAtNs = wallClockNs();
    addLog(QStringLiteral("⚠️ Map verdwenen: ") + m_watchPath +
               QStringLiteral(" — Morvak gaat vanzelf verder zodra de map terug is"),
           LogType::warning);
    Q_EMIT isWatchingChanged();
    Q_EMIT folderMissingChanged();
}

/// When the folder vanished, as a change time of files: by the clock as it was then, or as it is now when it
/// has been set back since.
qint64 FolderWatcher::lostAtNs() const
{
    const std::chrono::nanoseconds absence = Clock::now() - m_lostAt;
    return std::min(m_lostAtNs, wallClockNs() - qint64(absence.count()));
}

/// What arrived in the meantime is new; what another drive or folder brings along in its place is not. The
/// margin covers clocks that differ and the photos that were under way when the folder vanished.
void FolderWatcher::folderBack(WatchedFolder::Return kind)
{
    constexpr qint64 marginNs = 60'000'000'000;
    addLog(QStringLiteral("Watching: ") + m_watchPath, LogType::info);
    m_services.clearUp(m_watchPath);
    lookThroughFolder(kind == WatchedFolder::Return::FirstSeen ? nothing : lostAtNs() - marginNs);
    Q_EMIT isWatchingChanged();
    Q_EMIT folderMissingChanged();
}

/// Finds the photos that no event told of. Those changed before `newSinceNs` count as present, also when the
/// folder vanishes before they are found and another look finds them.
void FolderWatcher::lookThroughFolder(qint64 newSinceNs)
{
    m_newSinceNs = std::max(m_newSinceNs, newSinceNs);
    QThreadPool::globalInstance()->start(
        [this, port = m_mainThread, folder = m_watchPath, files = m_services.files, number = ++m_lookNumber] {
            port.post([this, number, found = photosIn(folder, files)] {
                if (number == m_lookNumber && isWatching() && found)
                    takeFound(*found);
            });
        });
}

void FolderWatcher::takeFound(const QList<FoundFile>& photos)
{
    m_folder.drain();
    const qint64 newSinceNs = std::exchange(m_newSinceNs, everything);
    for (const FoundFile& photo : photos) {
        if (m_pipeline.isScheduled(photo.path) || !m_known.isNew(photo.path, photo.state))
            continue;
        // It may have moved on since it was found, up to its tag.
        const std::optional<FileState> now = m_services.files.state(photo.path);
        if (!now || !m_known.isNew(photo.path, *now))
            continue;
        if (now->changedNs >= newSinceNs)
            processNewFile(photo.path);
        else
            m_known.noteTagged(photo.path, *now);
    }
}

void FolderWatcher::processNewFile(const QString& at)
{
    if (isPhotoName(at) && m_pipeline.schedule(at))
        addLog(QStringLiteral("Nieuw bestand: ") + lastPathComponent(at), LogType::info);
}

QString FolderWatcher::pathOf(const QString& name) const
{
    return pathBelow(m_watchPath, name);
}

/// The name under which the events of a photo come, when it lies in the watched folder.
QString FolderWatcher::asWatched(const QString& path) const
{
    const QString name = lastPathComponent(path);
    const FolderHandle folder(path.chopped(name.size()));
    return folder.isSameAs(FolderHandle(m_watchPath)) ? pathOf(name) : path;
}

void FolderWatcher::setWatchPath(const QString& path)
{
    if (m_watchPath == path)
        return;
    m_watchPath = path;
    Q_EMIT watchPathChanged();
}

}  // namespace morvak
