// How long the main thread is kept from its event loop while a great many photos are dropped at once, and
// while the log fills before the eyes of the user: a timer that should fire every millisecond measures its
// own lateness. The main window is open (on a display, where there is one). Saving the store is left out by
// not saving.
//
//   bench_main_thread [photos=1000]

#include "catalog/ProductCatalog.h"
#include "engine/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "platform/Signals.h"
#include "rename/RawRenameService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "store/ShootManager.h"
#include "support/FigureTable.h"
#include "ui/base/DesktopDialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/theme/Theme.h"
#include "ui/main/MainView.h"
#include "update/UpdateChecker.h"
#include "watch/FolderWatcher.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <thread>
#include <vector>

using namespace morvak;

namespace {

QByteArray photo()
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    options.size = 500'000;
    return samples::nefPhoto(options);
}

void dropPhotos(const QString& folder, int count)
{
    const QByteArray bytes = photo();
    for (int i = 0; i < count; ++i) {
        QFile file(QStringLiteral("%1/IMG_%2.NEF").arg(folder).arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
    }
}

/// Milliseconds between the turns of the event loop.
class Heartbeat {
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_gaps.push_back(double(m_clock.nsecsElapsed()) / 1e6), m_clock.restart();
        });
        m_timer.start(1);
        m_clock.start();
    }

    void report(const char* during)
    {
        std::printf("%s, gap between turns in ms: median %.2f, 95 %% %.2f, 99 %% %.2f, longest %.2f\n",
                    during, quantile(0.5), quantile(0.95), quantile(0.99), quantile(1));
        bench::addFigure(
            QStringLiteral("Main thread, window open, %1: 95 % of its turns").arg(QString::fromUtf8(during)),
            QStringLiteral("%1 ms, longest %2 ms")
                .arg(quantile(0.95), 0, 'f', 1)
                .arg(quantile(1), 0, 'f', 1));
    }

private:
    [[nodiscard]] double quantile(double part)
    {
        std::sort(m_gaps.begin(), m_gaps.end());
        return m_gaps.at(std::min(m_gaps.size() - 1, std::size_t(part * double(m_gaps.size()))));
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    std::vector<double> m_gaps;
};

void measurePhotos(const FolderWatcher& watcher, const QString& folder, int count)
{
    Heartbeat heartbeat;
    std::thread camera(dropPhotos, folder, count);
    const auto counting = QObject::connect(&watcher, &FolderWatcher::taggedCountChanged, [&] {
        if (watcher.taggedCount() == count)
            QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QObject::disconnect(counting);
    camera.join();
    heartbeat.report(qPrintable(QStringLiteral("%1 photos at once").arg(count)));
}

/// Two hundred a second, for five seconds, before the eyes of the user.
void measureLogLines(FolderWatcher& watcher)
{
    Heartbeat heartbeat;
    int lines = 0;
    QTimer typing;
    typing.setTimerType(Qt::PreciseTimer);
    typing.callOnTimeout([&] {
        watcher.addLog(QStringLiteral("✅ Getagd: IMG_%1.CR3 → Set 12 — Noord").arg(lines), LogType::success);
        if (++lines == 1000)
            QCoreApplication::quit();
    });
    typing.start(5);
    QCoreApplication::exec();
    heartbeat.report("200 log lines a second");
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ignoreStraySignals();
    const QApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
    const QTemporaryDir folder;
    ExifToolService exifTool;
    ShootManager store(folder.filePath(QStringLiteral("store/shoots.json")));
    FolderWatcher watcher(watcherServices(exifTool));
    watcher.setShootManager(&store);
    store.createShoot(QStringLiteral("Meting"), {}, {});
    watcher.setCurrentSet(store.handleScanInput(QStringLiteral("SET:1\nBRAND:Noord")));
    exifTool.start();
    watcher.startWatching(folder.path());

    ProductCatalog catalog(folder.filePath(QStringLiteral("store/catalog.json")));
    Theme theme;
    DesktopDialogs dialogs;
    UpdateConfig updateConfig;
    updateConfig.preferencesPath = folder.filePath(QStringLiteral("preferences"));
    UpdateChecker updates(updateConfig);
    const RawRenameService rename({});
    UiServices services{.shoots = store,
                        .watcher = watcher,
                        .catalog = catalog,
                        .updates = updates,
                        .theme = theme,
                        .dialogs = dialogs,
                        .version = QStringLiteral("0"),
                        .startTool = [] {},
                        .stopTool = [] {},
                        .rename = rename,
                        .openInBrowser = [](const QUrl&) {}};
    MainView window(services);
    window.show();
    QCoreApplication::processEvents();

    measurePhotos(watcher, folder.path(), count);
    constexpr int logTab = 3;
    window.setSelectedTab(logTab);
    measureLogLines(watcher);
    watcher.prepareToQuit();
    exifTool.terminateForAppQuit();
    return 0;
}
