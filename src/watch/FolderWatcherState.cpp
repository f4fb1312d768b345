#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"
#include "watch/Thumbnail.h"

// The published state of the watcher and how it changes; the folder and its events are in FolderWatcher.cpp.

namespace morvak {

namespace {

constexpr qsizetype longestLog = 200;
constexpr qsizetype mostThumbnails = 5;

}  // namespace

void FolderWatcher::addLog(const QString& message, LogType type)
{
    m_mainThread.post([this, message, type] {
        m_log.prepend({QUuid::createUuid(), QDateTime::currentDateTime(), message, type});
        if (m_log.size() > longestLog)
            m_log.resize(longestLog);
        Q_EMIT logChanged();
    });
}

void FolderWatcher::clearLog()
{
    m_log.clear();
    Q_EMIT logChanged();
}

void FolderWatcher::appendThumbnail(const QImage& image, const QString& filename)
{
    const QImage thumbnail = makeThumbnail(image);
    if (thumbnail.isNull())
        return;
    m_recentThumbnails.prepend({filename, thumbnail});
    if (m_recentThumbnails.size() > mostThumbnails)
        m_recentThumbnails.resize(mostThumbnails);
    Q_EMIT recentThumbnailsChanged();
}

void FolderWatcher::setCurrentSet(const std::optional<SetData>& set)
{
    const bool isNew = set && (!m_currentSet || m_currentSet->id != set->id);
    m_currentSet = set;
    Q_EMIT currentSetChanged();
    if (!isNew)
        return;
    diagnostic(QStringLiteral("🏷️ Actieve set: ") + set->headline());
    setJustActivatedHeadline(set->headline());
    m_bannerTimer.start();
    m_services.playSound();
}

void FolderWatcher::setJustActivatedHeadline(const std::optional<QString>& headline)
{
    m_justActivatedHeadline = headline;
    Q_EMIT justActivatedHeadlineChanged();
}

void FolderWatcher::setQrDetectionEnabled(bool enabled)
{
    m_qrDetectionEnabled = enabled;
    Q_EMIT qrDetectionEnabledChanged();
}

void FolderWatcher::setDeleteQRCardAfterScan(bool enabled)
{
    m_deleteQRCardAfterScan = enabled;
    Q_EMIT deleteQRCardAfterScanChanged();
}

void FolderWatcher::setTaggedCount(qint64 count)
{
    m_taggedCount = count;
    Q_EMIT taggedCountChanged();
}

void FolderWatcher::cardActivated(const SetData& set)
{
    setCurrentSet(set);
    ++m_setCount;
    Q_EMIT setCountChanged();
    addLog(QStringLiteral("📷 Set herkend uit foto: ") + set.headline(), LogType::success);
}

void FolderWatcher::countTagged(const SetData& set)
{
    setTaggedCount(m_taggedCount + 1);
    if (m_shootManager)
        m_shootManager->incrementTagCount(set.id);
}

void FolderWatcher::photoTagged(const QString& name, const SetData& set, const QImage& thumbnail)
{
    m_lastTaggedFile = name;
    Q_EMIT lastTaggedFileChanged();
    countTagged(set);
    addLog(QStringLiteral("✅ Getagd: %1 → %2").arg(name, set.headline()), LogType::success);
    appendThumbnail(thumbnail, name);
}

void FolderWatcher::taggingFailed(const QString& name, const QString& line)
{
    if (lowerCaseExtension(name) == u"3fr")
        addLog(
            QStringLiteral(
                "ℹ️ %1 niet getagd — .3FR kan exiftool niet wegschrijven, een beperking van exiftool "
                "zelf, niet van Morvak")
                .arg(name),
            LogType::warning);
    else
        addLog(line + name, LogType::error);
}

BacklogHands FolderWatcher::backlogHands()
{
    return {.readHeadline = m_services.readHeadline,
            .write =
                [this](const QString& path, const Tagging& tagging, const auto& completion) {
                    return m_pipeline.tagWith(asWatched(path), tagging, completion);
                },
            .tagged =
                [this](const QString& name, const SetData& set) {
                    countTagged(set);
                    addLog(QStringLiteral("✅ Achteraf getagd: %1 → %2").arg(name, set.headline()),
                           LogType::success);
                },
            .failed =
                [this](const QString& name) {
                    taggingFailed(name, QStringLiteral("❌ Achteraf taggen mislukt: "));
                },
            .log = [this](const QString& message, LogType type) { addLog(message, type); }};
}

std::shared_ptr<BacklogRun> FolderWatcher::processExistingFiles(const QString& in, const Shoot& shoot,
                                                                BacklogRun::Completion completion)
{
    const auto run = std::make_shared<BacklogRun>(shoot, backlogHands(), m_mainThread);
    m_backlogRuns.append(run);
    run->start(in, [this, run = run.get(), completion](const BacklogScanSummary& summary) {
        m_backlogRuns.removeIf([run](const auto& other) { return other.get() == run; });
        completion(summary);
    });
    return run;
}

}  // namespace morvak
