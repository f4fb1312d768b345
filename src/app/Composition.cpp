#include "app/Composition.h"

#include "app/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "platform/Diagnostics.h"
#include "platform/ScanInput.h"
#include "ui/sets/ScanBar.h"
#include "ui/sets/ShootFiles.h"
#include "update/UpdateChecker.h"

#include <QDesktopServices>

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

void openPage(const QUrl& page)
{
    if (!QDesktopServices::openUrl(page))
        diagnostic(u"⚠️ De browser kan niet geopend worden: "_s + page.toString());
}

}  // namespace

Composition::Composition(const CompositionParts& parts)
    : m_parts(parts),
      m_shoots(parts.storeFile),
      m_catalog(parts.catalogFile),
      m_watcher(watcherServices(parts.exifTool))
{
    printLog(m_watcher);
}

Composition::~Composition() = default;

void Composition::start()
{
    m_parts.exifTool.start();
    if (m_parts.checksForUpdates)
        m_parts.updates.start();
}

void Composition::showWindows(Theme::Choice choice)
{
    m_theme = std::make_unique<Theme>();
    m_theme->setChoice(choice);
    m_services.emplace(UiServices{
        .shoots = m_shoots,
        .watcher = m_watcher,
        .catalog = m_catalog,
        .updates = m_parts.updates,
        .theme = *m_theme,
        .dialogs = m_dialogs,
        .version = m_parts.version,
        .startTool = [this] { m_parts.exifTool.start(); },
        .stopTool = [this] { m_parts.exifTool.stop(); },
        .readSubjectsAndDates =
            [this](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
                return m_parts.exifTool.readSubjectsAndDates(in, extensions, control);
            },
        .openInBrowser = openPage});
    m_shell = std::make_unique<Shell>(*m_services);
    connect(m_shell.get(), &Shell::quitAsked, this, &Composition::quitAsked);
    connect(&m_shell->mainView(), &MainView::firstShown, this, &Composition::takeUpShoots);
    m_shell->openMain();
}

void Composition::runUnseen()
{
    takeUpShoots();
    if (m_watcher.watchPath().isEmpty())
        diagnostic(u"⚠️ Geen map om te volgen: er is geen shoot met een map"_s);
}

/// Before this a shoot that is opened would be replaced, on disk as well, by those that are read.
void Composition::takeUpShoots()
{
    if (std::exchange(m_hasShoots, true))
        return;
    m_watcher.setShootManager(&m_shoots);
    m_shoots.load();
    m_followedShoot = m_shoots.activeShootId();
    m_watcher.applyWatchFolder(m_shoots.activeShoot());
    connect(&m_shoots, &ShootManager::activeShootIdChanged, this, &Composition::followActiveShoot);
}

/// The signal tells of every assignment. Where the shoot has stayed the same, a watcher that the user has
/// stopped stays stopped.
void Composition::followActiveShoot()
{
    const std::optional<QUuid> active = m_shoots.activeShootId();
    if (std::exchange(m_followedShoot, active) != active)
        m_watcher.applyWatchFolder(m_shoots.activeShoot());
}

void Composition::bringToFront()
{
    if (m_shell)
        m_shell->openMain();
}

void Composition::openShootFiles(const QStringList& paths)
{
    takeUpShoots();
    for (const QString& path : paths) {
        if (m_shell)
            m_shell->mainView().openShootFile(path);
        else if (const std::optional<QByteArray> bytes = readShootFile(path))
            m_shoots.importShoot(*bytes);
    }
}

void Composition::readScans(int fd)
{
    m_scanner = std::make_unique<ScanInput>(fd);
    connect(m_scanner.get(), &ScanInput::scanned, this,
            [this](const QString& text) { takeScan(m_shoots, m_watcher, text); });
}

void Composition::quit()
{
    m_scanner.reset();
    m_watcher.prepareToQuit();
    m_shell.reset();
    m_parts.exifTool.terminateForAppQuit();
}

}  // namespace morvak
