// The demonstration: a small shoot, played with the real program on real files. Exit status 0 only when every
// photo carries what it should.

#include "demo/Demo.h"
#include "platform/Signals.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

using namespace morvak;

namespace {

/// Draws, but shows no window itself, and leaves the user's folders alone; the program it starts gets an
/// environment of its own.
void prepareOwnEnvironment(const QTemporaryDir& runtimeFolder)
{
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toUtf8());
}

}  // namespace

int main(int argc, char** argv)
{
    constexpr std::chrono::seconds wholeTime(60);
    ignoreStraySignals();
    const QTemporaryDir runtimeFolder;
    prepareOwnEnvironment(runtimeFolder);
    const QGuiApplication application(argc, argv);

    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/morvak");
    if (!QFile::exists(program)) {
        std::fputs("morvak staat niet naast morvak-demo; bouw het eerst.\n", stderr);
        return 1;
    }
    driver::Pacer pacer(wholeTime);
    onQuitRequest(&pacer, [&pacer] { pacer.stop(); });
    return demo::Demo(program, pacer).run() ? 0 : 1;
}
