#include "ShellLoop.h"

#include "metadata/TaggingRequest.h"

#include <sys/prctl.h>
#include <unistd.h>
#include <csignal>

namespace morvak::bench {

namespace {

constexpr const char* script = R"(
folder=$1; shift
inotifywait -m -e close_write --format %f "$folder" | while read -r name; do
    case $name in *_exiftool_tmp) continue ;; esac
    exiftool -q "$@" "$folder/$name" </dev/null
done)";

}  // namespace

ShellLoop::ShellLoop(const QDir& folder)
{
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] {
        ::setsid();  // so that the loop's children can be ended together
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    m_process.start(QStringLiteral("bash"), QStringList{QStringLiteral("-c"), QLatin1String(script),
                                                        QStringLiteral("loop"), folder.path()} +
                                                taggingOptions(benchTagging()));
    QByteArray said;
    while (!said.contains("Watches established")) {
        if (!m_process.waitForReadyRead(5000) && m_process.state() == QProcess::NotRunning)
            qFatal("the shell loop does not run; is inotify-tools installed?");
        said += m_process.readAllStandardError();
    }
}

ShellLoop::~ShellLoop()
{
    ::kill(-static_cast<pid_t>(m_process.processId()), SIGTERM);
    m_process.waitForFinished();
}

}  // namespace morvak::bench
