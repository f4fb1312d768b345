#include "watch/FolderWatcher.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/FolderWalk.h"
#include "store/ShootManager.h"
#include "watch/PhotoTypes.h"

#include <algorithm>

namespace morvak {

using Clock = std::chrono::steady_clock;

FolderWatcher::FolderWatcher(WatcherServices services, QObject* parent)
    : QObject(parent),
      m_services(std::move(services)),
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
    m_stream.reset();
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
    stopStream();
    setWatchPath(path);
    if (m_shootManager && m_shootManager->activeShootId())
        m_shootManager->setWatchFolder(path, *m_shootManager->activeShootId());
    m_taggedSignatures.clear();
    if (path.startsWith(u'/'))
        m_stream =
            m_services.openFolder(path, [this](const QList<FolderEvent>& events) { onFolderEvents(events); });
    if (!m_stream) {
        diagnostic(QStringLiteral("⚠️ Map kan niet gevolgd worden: ") + path);
        return;
    }
    addLog(QStringLiteral("Watching: ") + path, LogType::info);
    seedSignatures(path);
    Q_EMIT isWatchingChanged();
}

/// What lies in the folder already counts as handled. The folder is watched before it is listed: a photo that
/// has had an event since is under way by now, and is no old one.
void FolderWatcher::seedSignatures(const QString& folder)
{
    QHash<QString, FileSignature> present;
    for (const QString& name : folderEntries(folder).value_or(QStringList())) {
        const QString path = pathOf(name);
        if (!isPhotoName(name))
            continue;
        if (const std::optional<FileState> state = m_services.files.state(path))
            present.insert(path, FileSignature(*state));
    }
    m_stream->drain();
    for (auto photo = present.cbegin(); photo != present.cend(); ++photo) {
        if (!m_pipeline.isScheduled(photo.key()))
            m_taggedSignatures.insert(photo.key(), photo.value());
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
        stopStream();
        setWatchPath(QString());
    } else if (folder != m_watchPath || !isWatching()) {
        startWatching(folder);
    }
}

void FolderWatcher::stopStream()
{
    m_batchTimer.stop();
    m_batcher.clear();
    if (!m_stream)
        return;
    m_stream.reset();
    Q_EMIT isWatchingChanged();
}

void FolderWatcher::readEvents()
{
    if (m_stream)
        m_stream->drain();
}

void FolderWatcher::onFolderEvents(const QList<FolderEvent>& events)
{
    bool lost = false;
    bool gone = false;
    for (const FolderEvent& event : events) {
        lost |= event.kind == FolderEvent::Kind::Overflow;
        gone |= event.kind == FolderEvent::Kind::FolderGone;
        takeEvent(event);
    }
    if (lost)
        handOnEverythingUnknown();
    if (gone) {
        diagnostic(QStringLiteral("⚠️ Map verdwenen: ") + m_watchPath);
        stopStream();
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
    const auto known = m_taggedSignatures.constFind(path);
    if (known != m_taggedSignatures.constEnd() && *known == FileSignature(*state))
        return;
    processNewFile(path);
}

void FolderWatcher::handOnEverythingUnknown()
{
    diagnostic(QStringLiteral("⚠️ Mapgebeurtenissen gemist — map opnieuw bekeken: ") + m_watchPath);
    for (const QString& name : folderEntries(m_watchPath).value_or(QStringList()))
        handOn(pathOf(name));
}

void FolderWatcher::processNewFile(const QString& at)
{
    if (isPhotoName(at) && m_pipeline.schedule(at))
        addLog(QStringLiteral("Nieuw bestand: ") + lastPathComponent(at), LogType::info);
}

QString FolderWatcher::pathOf(const QString& name) const
{
    return m_watchPath.endsWith(u'/') ? m_watchPath + name : m_watchPath + u'/' + name;
}

/// The name under which the events of a photo come, when it lies in the watched folder.
QString FolderWatcher::asWatched(const QString& path) const
{
    const QString name = lastPathComponent(path);
    return isSameFolder(path.chopped(name.size()), m_watchPath) ? pathOf(name) : path;
}

void FolderWatcher::setWatchPath(const QString& path)
{
    if (m_watchPath == path)
        return;
    m_watchPath = path;
    Q_EMIT watchPathChanged();
}

}  // namespace morvak
