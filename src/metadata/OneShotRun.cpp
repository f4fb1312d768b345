#include "metadata/OneShotRun.h"

#include "platform/Diagnostics.h"

namespace morvak {

namespace {

QByteArray allOutput(ChildProcess& child, QDeadlineTimer deadline, const Interrupt& quit)
{
    QByteArray output;
    QByteArray chunk;
    while (!deadline.hasExpired()) {
        switch (child.read(chunk, deadline, &quit)) {
            case ChildProcess::Io::Done:
                output += chunk;
                break;
            case ChildProcess::Io::EndOfStream:
                return output;
            case ChildProcess::Io::TimedOut:
                break;
            case ChildProcess::Io::Interrupted:
            case ChildProcess::Io::Failed:
                return {};
        }
    }
    diagnostic(QStringLiteral("⏱️ ExifTool one-shot run timed out"));
    return {};
}

}  // namespace

QByteArray runToolOnce(const ChildCommand& command, std::chrono::milliseconds limit, const Interrupt& quit)
{
    if (quit.isRaised())
        return {};
    QString error;
    const std::unique_ptr<ChildProcess> child = ChildProcess::launch(command, error);
    if (child)
        return allOutput(*child, QDeadlineTimer(limit), quit);
    diagnostic(QStringLiteral("❌ Failed to start ExifTool: ") + error);
    return {};
}

}  // namespace morvak
