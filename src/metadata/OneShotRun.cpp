#include "metadata/OneShotRun.h"

#include "metadata/ToolConfig.h"
#include "platform/Diagnostics.h"

namespace morvak {

namespace {

using Kind = ToolAnswer::Kind;

ToolAnswer late(const QString& line)
{
    diagnostic(QStringLiteral("⏱️ ExifTool one-shot run ") + line);
    return Kind::Late;
}

ToolAnswer allOutput(ChildProcess& child, QDeadlineTimer deadline, const Interrupt& quit)
{
    QByteArray output;
    QByteArray chunk;
    while (!deadline.hasExpired()) {
        switch (child.read(chunk, deadline, &quit)) {
            case ChildProcess::Io::Done:
                output += chunk;
                if (output.size() > mostAnswerBytes)
                    return late(QStringLiteral("prints without an end"));
                break;
            case ChildProcess::Io::EndOfStream:
                return output;
            case ChildProcess::Io::TimedOut:
                break;
            case ChildProcess::Io::Interrupted:
            case ChildProcess::Io::Failed:
                return Kind::Unasked;
        }
    }
    return late(QStringLiteral("timed out"));
}

}  // namespace

ToolAnswer runToolOnce(const ChildCommand& command, std::chrono::milliseconds limit, const Interrupt& quit)
{
    if (quit.isRaised())
        return Kind::Unasked;
    if (ChildProcess::abandonedCount() >= mostAbandonedTools)
        return late(QStringLiteral("not started: too many cannot be ended"));
    QString error;
    const std::unique_ptr<ChildProcess> child = ChildProcess::launch(command, error);
    if (child)
        return allOutput(*child, QDeadlineTimer(limit), quit);
    diagnostic(QStringLiteral("❌ Failed to start ExifTool: ") + error);
    return Kind::Unasked;
}

}  // namespace morvak
