#include "app/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "platform/Diagnostics.h"
#include "platform/ScanInput.h"
#include "platform/Signals.h"
#include "platform/UserFolders.h"
#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <unistd.h>

using namespace morvak;

namespace {

void takeScan(const QString& text, ShootManager& store, FolderWatcher& watcher)
{
    if (const std::optional<SetData> set = store.handleScanInput(text))
        watcher.setCurrentSet(set);
    else
        diagnostic(QStringLiteral("⚠️ Scan bevat geen set — overgeslagen"));
}

/// The watcher's log, a line at a time as it grows.
void printLog(const FolderWatcher& watcher)
{
    QObject::connect(&watcher, &FolderWatcher::logChanged,
                     [&watcher] { diagnostic(watcher.log().constFirst().message); });
}

int run(bool scanStandardInput)
{
    ExifToolService& exifTool = ExifToolService::shared();
    ShootManager store(storeFolder() + QStringLiteral("/shoots.json"));
    FolderWatcher watcher(watcherServices(exifTool));
    printLog(watcher);
    onQuitRequest(&watcher, [] { QCoreApplication::quit(); });

    exifTool.start();
    watcher.setShootManager(&store);
    store.load();
    watcher.applyWatchFolder(store.activeShoot());
    if (watcher.watchPath().isEmpty())
        diagnostic(QStringLiteral("⚠️ Geen map om te volgen: er is geen shoot met een map"));
    std::optional<ScanInput> scanner;
    if (scanStandardInput) {
        scanner.emplace(STDIN_FILENO);
        QObject::connect(&*scanner, &ScanInput::scanned,
                         [&](const QString& text) { takeScan(text, store, watcher); });
    }

    const int status = QCoreApplication::exec();
    watcher.prepareToQuit();
    exifTool.terminateForAppQuit();
    return status;
}

}  // namespace

int main(int argc, char** argv)
{
    ignoreStraySignals();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Morvak"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MORVAK_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Geeft elke nieuwe foto in de map van de shoot de gegevens van de actieve set mee.\n\n"
                       "Shoots:       %1/shoots.json\nVoorkeuren:   %2")
            .arg(storeFolder(), preferencesFile()));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption scanStdin(
        QStringLiteral("scan-stdin"),
        QStringLiteral("Lees scans van de standaardinvoer; een lege regel sluit een scan af."));
    parser.addOption(scanStdin);
    parser.process(application);

    const int status = run(parser.isSet(scanStdin));
    flushDiagnostics(std::chrono::milliseconds(200));
    return status;
}
