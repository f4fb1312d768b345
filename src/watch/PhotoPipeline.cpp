#include "watch/PhotoPipeline.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"
#include "watch/WatcherServices.h"

namespace morvak {

PhotoPipeline::PhotoPipeline(FolderWatcher& watcher, const WatcherServices& services, MainThread mainThread)
    : m_watcher(watcher),
      m_services(services),
      m_mainThread(std::move(mainThread)),
      m_waitingRoom(services.waitLimits, services.files, m_mainThread,
                    {[this](quint64 run, quint64 size) { sizeSettled(run, size); },
                     [this](quint64 run) { finish(run); }, [this](quint64 run) { released(run); },
                     [this](quint64 run) { stillHeld(run); }}),
      m_looks(services.times.looks, services.eyes, m_mainThread,
              {[this](quint64 run, const PhotoReading& reading) { photoRead(run, reading); },
               [this](quint64 run) { waitsForReader(run); },
               [this](quint64 run, const QString& path, const PhotoReading& reading) {
                   photoReadLate(run, path, reading);
               },
               [this](bool isAway) { readerAwayChanged(isAway); }})
{
    m_trashPool.setMaxThreadCount(1);
}

PhotoPipeline::~PhotoPipeline()
{
    prepareToQuit();
    m_trashPool.waitForDone();
}

void PhotoPipeline::prepareToQuit()
{
    m_looks.prepareToQuit();
    m_trashPool.clear();
}

bool PhotoPipeline::schedule(const QString& path)
{
    const PhotoRun* const run = m_runs.add(path);
    if (run)
        m_waitingRoom.settle(run->number, path);
    return run;
}

void PhotoPipeline::sizeSettled(quint64 number, quint64 size)
{
    PhotoRun* const run = m_runs.find(number);
    const QString name = lastPathComponent(run->path);
    diagnostic(QStringLiteral("📁 Bestand stabiel: %1 (%2KB)").arg(name, QString::number(size / 1024)));
    if (const std::optional<quint64> old = m_watcher.m_known.taggedSize(run->path)) {
        if (*old == size) {
            finish(number);
            return;
        }
        m_watcher.addLog(
            QStringLiteral("⚠️ Bestandsnaam hergebruikt: %1 heeft nieuwe inhoud (was al eerder "
                           "getagd). Mogelijk cameranummer gewrapt of kaart vervangen — opnieuw "
                           "getagd.")
                .arg(name),
            LogType::warning);
    }
    run->stage = PhotoRun::Stage::Locked;
    m_waitingRoom.awaitRelease(number, run->path);
}

void PhotoPipeline::stillHeld(quint64 number)
{
    const QString path = m_runs.find(number)->path;
    const QString name = lastPathComponent(path);
    m_watcher.addLog(
        QStringLiteral("⚠️ Bestand gelocked door ander process — %1 overgeslagen").arg(name),
        LogType::warning);
    noteDealtWith(path);
    finishAndLookAgain(number);
}

void PhotoPipeline::released(quint64 number)
{
    PhotoRun* const run = m_runs.find(number);
    run->stage = PhotoRun::Stage::Reading;
    const ShootManager* const store = m_watcher.m_shootManager;
    const bool detectCode = m_watcher.qrDetectionEnabled() && store && store->activeShoot();
    const bool isRewritten = m_watcher.m_known.taggedSize(run->path).has_value();
    m_looks.look({number, run->path, detectCode, isRewritten});
}

/// Until the metadata tool answers again; the photos behind it go on.
void PhotoPipeline::waitsForReader(quint64 number)
{
    m_runs.find(number)->stage = PhotoRun::Stage::AwaitingReader;
    takeSets();
}

void PhotoPipeline::photoRead(quint64 number, const PhotoReading& reading)
{
    PhotoRun* const run = m_runs.find(number);
    run->reading = reading;
    run->stage = PhotoRun::Stage::Ready;
    takeSets();
}

void PhotoPipeline::readerAwayChanged(bool isAway)
{
    if (isAway)
        m_watcher.addLog(
            QStringLiteral("⚠️ exiftool antwoordt niet op vragen over foto's — nieuwe foto's worden "
                           "getagd zonder dat Morvak ze bekijkt; setkaarten op foto's worden later "
                           "herkend"),
            LogType::warning);
    else
        m_watcher.addLog(QStringLiteral("exiftool antwoordt weer — foto's worden weer bekeken"),
                         LogType::info);
}

/// A card that comes to light late labels nothing anew. It activates its set only while nothing newer was
/// activated, and is not moved to the Trash: it carries tags by now.
void PhotoPipeline::photoReadLate(quint64 number, const QString& path, const PhotoReading& reading)
{
    const std::optional<SetMoment> before = m_lateCards.take(number);
    const std::optional<SetData> set = otherSetOn(reading);
    if (!before || !set || !m_watcher.qrDetectionEnabled())
        return;
    const QString name = lastPathComponent(path);
    if (*before != moment() || !activateCard(reading)) {
        m_watcher.addLog(
            QStringLiteral("⚠️ Setkaart te laat herkend: %1 (%2) — niet geactiveerd, want daarna "
                           "is een andere set gekozen; controleer de foto's na de kaart")
                .arg(name, set->headline()),
            LogType::warning);
        return;
    }
    m_lateCards.cardActivated(number, *before, moment());
    m_watcher.addLog(
        QStringLiteral("⚠️ Setkaart te laat herkend: %1 — controleer de foto's die er al waren")
            .arg(name),
        LogType::warning);
}

void PhotoPipeline::takeSets()
{
    while (PhotoRun* const run = m_runs.nextToTakeSet())
        takeSet(*run);
}

void PhotoPipeline::takeSet(PhotoRun& run)
{
    if (run.reading.isIncomplete())
        m_lateCards.note(run.number, moment());
    if (activateCard(run.reading) && m_watcher.deleteQRCardAfterScan()) {
        discardCard(run);
    } else if (const std::optional<SetData> set = m_watcher.currentSet()) {
        tag(run, *set);
    } else {
        const QString name = lastPathComponent(run.path);
        m_watcher.addLog(QStringLiteral("⚠️ Geen actieve set — %1 overgeslagen").arg(name),
                         LogType::warning);
        noteDealtWith(run.path);
        finish(run.number);
    }
}

SetMoment PhotoPipeline::moment() const
{
    const ShootManager* const store = m_watcher.m_shootManager;
    const std::optional<Shoot> shoot = store ? store->activeShoot() : std::nullopt;
    const std::optional<SetData>& current = m_watcher.currentSet();
    return {shoot ? std::optional(shoot->id) : std::nullopt, shoot ? shoot->activationLog.size() : 0,
            current ? std::optional(current->id) : std::nullopt};
}

/// The set on the card that the photo shows; none when it is the current one.
std::optional<SetData> PhotoPipeline::otherSetOn(const PhotoReading& reading) const
{
    const std::optional<SetData> set = reading.codeText ? SetData::parse(*reading.codeText) : std::nullopt;
    const std::optional<SetData>& current = m_watcher.currentSet();
    const bool isCurrent =
        set && current && current->setNumber == set->setNumber && current->brand == set->brand;
    return isCurrent ? std::nullopt : set;
}

/// True when the photo shows the card of another set than the current one, which is then active.
bool PhotoPipeline::activateCard(const PhotoReading& reading)
{
    if (!m_watcher.m_shootManager || !otherSetOn(reading))
        return false;
    const std::optional<SetData> activated = m_watcher.m_shootManager->handleScanInput(*reading.codeText);
    if (activated)
        m_watcher.cardActivated(*activated);
    return activated.has_value();
}

void PhotoPipeline::discardCard(PhotoRun& run)
{
    run.stage = PhotoRun::Stage::Trashing;
    m_trashPool.start([this, number = run.number, path = run.path] {
        const bool moved = m_services.moveToTrash(path);
        m_mainThread.post([this, number, moved, path] {
            const QString name = lastPathComponent(path);
            if (moved) {
                m_watcher.addLog(QStringLiteral("🗑️ QR-kaart naar prullenbak: ") + name, LogType::info);
            } else {
                m_watcher.addLog(QStringLiteral("⚠️ Kon QR-kaart niet verwijderen: ") + name,
                                 LogType::warning);
                noteDealtWith(path);
            }
            finish(number);
        });
    });
}

void PhotoPipeline::tag(PhotoRun& run, const SetData& set)
{
    const ShootManager* const store = m_watcher.m_shootManager;
    const Tagging tagging(set, store ? store->activeShoot() : std::nullopt);
    const QString name = lastPathComponent(run.path);
    diagnostic(QStringLiteral("🏷️ Tagging %1 with set: %2 (shoot: %3)")
                   .arg(name, set.headline(), tagging.shootName()));
    write(run, tagging, [this, name, set, thumbnail = run.reading.thumbnail](bool tagged) {
        if (tagged)
            m_watcher.photoTagged(name, set, thumbnail);
        else
            m_watcher.taggingFailed(name);
    });
}

bool PhotoPipeline::tagWith(const QString& path, const Tagging& tagging,
                            const std::function<void(bool tagged)>& completion)
{
    PhotoRun* const run = m_runs.add(path);
    if (run)
        write(*run, tagging, completion);
    return run;
}

void PhotoPipeline::write(PhotoRun& run, const Tagging& tagging,
                          const std::function<void(bool tagged)>& completion)
{
    run.stage = PhotoRun::Stage::Writing;
    m_services.writeMetadata(run.path, tagging,
                             [this, port = m_mainThread, number = run.number, completion](bool ok) {
                                 if (port.isClosed())
                                     return;
                                 completion(ok);
                                 written(number, ok);
                             });
}

void PhotoPipeline::written(quint64 number, bool ok)
{
    const PhotoRun& run = *m_runs.find(number);
    if (ok && rememberSignature(run)) {
        finish(number);
        return;
    }
    // A photo whose folder has vanished gets another chance when it is back.
    if (!ok && m_services.files.state(run.path))
        noteDealtWith(run.path);
    finishAndLookAgain(number);
}

/// Stores the state in which the photo was tagged; false when somebody changed it after the tool was done, so
/// that what lies there now is not what was tagged.
bool PhotoPipeline::rememberSignature(const PhotoRun& run)
{
    const std::optional<FileState> state = m_services.files.state(run.path);
    // Whatever happened before that look at the file is among the events when it is read now.
    m_watcher.m_folder.drain();
    if (run.changedAfterTagging)
        return false;
    if (state)
        m_watcher.m_known.noteTagged(run.path, *state);
    else
        m_watcher.m_known.noteDealtWith(run.path, state);
    return true;
}

/// Left as it is until somebody changes it or asks for it, also when the whole folder is looked through.
void PhotoPipeline::noteDealtWith(const QString& path)
{
    m_watcher.m_known.noteDealtWith(path, m_services.files.state(path));
}

void PhotoPipeline::finish(quint64 number)
{
    m_runs.remove(number);
}

/// A photo that was closed while it was held, or changed after it was tagged, has had its event already.
void PhotoPipeline::finishAndLookAgain(quint64 number)
{
    const PhotoRun& run = *m_runs.find(number);
    const QString path = run.path;
    const bool lookAgain = run.closedSinceLocked || run.changedAfterTagging;
    finish(number);
    if (lookAgain)
        m_watcher.handOn(path);
}

}  // namespace morvak
