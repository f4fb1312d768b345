#include "app/Desktop.h"
#include "app/SessionEnd.h"
#include "app/StartOptions.h"
#include "engine/Engine.h"
#include "metadata/ExifToolService.h"
#include "platform/Diagnostics.h"
#include "platform/Signals.h"
#include "platform/SingleInstance.h"
#include "platform/UserFolders.h"
#include "ui/base/theme/Theme.h"
#include "update/UpdateChecker.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QThreadPool>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>

#include <unistd.h>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds longestGoodbye(1000);

/// Where there is no display at all Morvak goes on without a window. Before the application is made.
bool goesUnseen()
{
    for (const char* const display : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(display))
            return false;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    diagnostic(u"⚠️ Geen beeldscherm gevonden — Morvak werkt zonder venster"_s);
    return true;
}

/// The application object waits for name lookups that the update check has begun, which takes as long as the
/// name server likes. Photos and stores are safe by then, so that nothing is lost by not waiting.
void leaveSoon(int status)
{
    std::thread([status] {
        std::this_thread::sleep_for(longestGoodbye);
        std::_Exit(status);
    }).detach();
}

std::variant<StartOptions, StartAnswer> readCommandLine(int argc, char** argv)
{
    return parseStartOptions(commandLineArguments(argc, argv),
                             {.workingFolder = QDir::currentPath(),
                              .version = QStringLiteral(MORVAK_VERSION),
                              .shootsFile = storeFolder() + u"/shoots.json"_s,
                              .preferencesFile = preferencesFile()});
}

/// Qt's own dialogs speak Dutch as well.
void speakDutch(QApplication& application)
{
    auto* const texts = new QTranslator(&application);
    if (texts->load(u"qtbase_nl"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
}

int answer(const StartAnswer& answer)
{
    const QByteArray text = answer.text.toUtf8();
    std::fwrite(text.constData(), 1, std::size_t(text.size()), answer.exitCode == 0 ? stdout : stderr);
    return answer.exitCode;
}

bool isSeen()
{
    return QGuiApplication::platformName() != u"offscreen"_s;
}

/// Who started Morvak from the desktop sees no terminal.
void complain(const QString& problem, Theme::Choice choice)
{
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    if (!isSeen())
        return;
    Theme theme;
    theme.setChoice(choice);
    DesktopDialogs().alert(nullptr, u"Morvak start niet"_s, problem);
}

using OpenFiles = std::function<void(const QStringList&)>;

/// From here on things happen: scans, and the files of this start.
int runEventLoop(Engine& engine, const StartOptions& options, const OpenFiles& openFiles)
{
    if (options.scanStdin)
        engine.readScans(STDIN_FILENO);
    // Within the event loop, because a file that cannot be read is reported in a dialog.
    QTimer::singleShot(0, &engine, [&options, &openFiles] {
        openFiles(options.files);
        if (options.exitAfterStartup)
            QCoreApplication::exit();
    });
    return QApplication::exec();
}

int runUnseen(Engine& engine, const StartOptions& options, SingleInstance& instance)
{
    const OpenFiles openFiles = [&engine](const QStringList& files) { engine.openShootFiles(files); };
    QObject::connect(&instance, &SingleInstance::filesHandedOver, &engine, openFiles);
    engine.runUnseen();
    return runEventLoop(engine, options, openFiles);
}

int runInWindows(Engine& engine, const StartOptions& options, SingleInstance& instance)
{
    UpdateChecker& updates = UpdateChecker::shared();
    if (isSeen())  // nobody else would see what it finds
        updates.start();
    Theme theme;
    theme.setChoice(options.theme.value_or(Theme::Choice::system));
    Desktop desktop(
        {.engine = engine, .updates = updates, .theme = theme, .version = QStringLiteral(MORVAK_VERSION)});
    QObject::connect(&desktop, &Desktop::quitAsked, qApp, [] { QCoreApplication::exit(); });
    QObject::connect(&instance, &SingleInstance::activationAsked, &desktop, &Desktop::bringToFront);
    QObject::connect(&instance, &SingleInstance::filesHandedOver, &desktop,
                     [&desktop](const QStringList& files) {
                         desktop.bringToFront();
                         desktop.openShootFiles(files);
                     });
    desktop.bringToFront();
    const int status = runEventLoop(engine, options,
                                    [&desktop](const QStringList& files) { desktop.openShootFiles(files); });
    engine.prepareToQuit();  // nothing reaches the windows while they go
    return status;
}

int run(const StartOptions& options, bool unseen, SingleInstance& instance)
{
    Engine engine({.exifTool = ExifToolService::shared(),
                   .storeFile = storeFolder() + u"/shoots.json"_s,
                   .catalogFile = storeFolder() + u"/catalog.json"_s});
    engine.start();
    const int status =
        unseen ? runUnseen(engine, options, instance) : runInWindows(engine, options, instance);
    engine.quit();
    return status;
}

}  // namespace

int main(int argc, char** argv)
{
    ignoreStraySignals();
    // Qt and the tools that Morvak starts look for the home by themselves.
    qputenv("HOME", QFile::encodeName(homeFolder()));
    const auto commandLine = readCommandLine(argc, argv);
    if (const auto* const text = std::get_if<StartAnswer>(&commandLine))
        return answer(*text);
    const bool unseen = goesUnseen();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Morvak"_s);
    QApplication::setApplicationVersion(QStringLiteral(MORVAK_VERSION));
    QApplication::setDesktopFileName(QStringLiteral(MORVAK_APPLICATION_ID));
    QApplication::setWindowIcon(Icons::logo());
    // Morvak lives on in the tray when no window is left, and after whatever Qt has waited for.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setQuitLockEnabled(false);
    // The scan field has the focus all day; a cursor that blinks would wake the program twice a second.
    QApplication::setCursorFlashTime(0);
    // Background work mostly waits for tools and disks: none of it shall wait for the rest.
    QThreadPool::globalInstance()->setMaxThreadCount(8);
    speakDutch(application);
    quitWhenAsked(application);

    const StartOptions& options = std::get<StartOptions>(commandLine);
    SingleInstance instance(storeFolder());
    int status = 0;
    switch (instance.start(options.files)) {
        case SingleInstance::Outcome::First:
            status = run(options, unseen, instance);
            break;
        case SingleInstance::Outcome::HandedOver:
            diagnostic(u"ℹ️ Morvak draait al en neemt het over"_s);
            break;
        case SingleInstance::Outcome::Failed:
            complain(instance.problem(), options.theme.value_or(Theme::Choice::system));
            status = 1;
            break;
    }
    flushDiagnostics(std::chrono::milliseconds(200));
    leaveSoon(status);
    return status;
}
