#include "engine/Engine.h"

#include "actions/OpenShootFile.h"
#include "actions/SetActions.h"
#include "engine/SaveReport.h"
#include "engine/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "platform/Diagnostics.h"
#include "platform/ScanInput.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

/// The watcher's log, a line at a time as it grows.
void printLog(const FolderWatcher& watcher)
{
    QObject::connect(&watcher, &FolderWatcher::logChanged, &watcher, [&watcher] {
        if (!watcher.log().isEmpty())
            diagnostic(watcher.log().constFirst().message);
    });
}

}  // namespace

Engine::Engine(const EngineParts& parts)
    : m_exifTool(parts.exifTool),
      m_shoots(parts.storeFile),
      m_catalog(parts.catalogFile),
      m_watcher(watcherServices(parts.exifTool))
{
    printLog(m_watcher);
    reportSaving(m_shoots.saver(), m_watcher);
    reportSaving(m_catalog.saver(), m_watcher);
}

Engine::~Engine() = default;

void Engine::start()
{
    m_exifTool.start();
}

void Engine::takeUpShoots()
{
    if (std::exchange(m_hasShoots, true))
        return;
    m_watcher.setShootManager(&m_shoots);
    m_shoots.load();
    m_followedShoot = m_shoots.activeShootId();
    m_watcher.applyWatchFolder(m_shoots.activeShoot());
    connect(&m_shoots, &ShootManager::activeShootIdChanged, this, &Engine::followActiveShoot);
}

/// The signal comes with every assignment. Where the shoot has stayed the same, a watcher that the user has
/// stopped stays stopped.
void Engine::followActiveShoot()
{
    const std::optional<QUuid> active = m_shoots.activeShootId();
    if (std::exchange(m_followedShoot, active) != active)
        m_watcher.applyWatchFolder(m_shoots.activeShoot());
}

void Engine::runUnseen()
{
    takeUpShoots();
    if (m_watcher.watchPath().isEmpty())
        diagnostic(u"⚠️ Geen map om te volgen: er is geen shoot met een map"_s);
}

void Engine::openShootFiles(const QStringList& paths)
{
    takeUpShoots();
    for (const QString& path : paths)
        openShootFile(m_shoots, path);
}

void Engine::readScans(int fd)
{
    m_scanner = std::make_unique<ScanInput>(fd);
    connect(m_scanner.get(), &ScanInput::scanned, this,
            [this](const QString& text) { takeScan(m_shoots, m_watcher, text); });
}

void Engine::prepareToQuit()
{
    if (std::exchange(m_quits, true))
        return;
    m_scanner.reset();
    m_watcher.prepareToQuit();
    m_shoots.saveRest();
    m_catalog.saveRest();
    reportUnsaved(m_shoots.saver());
    reportUnsaved(m_catalog.saver());
}

void Engine::quit()
{
    prepareToQuit();
    m_exifTool.terminateForAppQuit();
}

}  // namespace morvak
