#include "metadata/StayOpenTool.h"

#include "metadata/ToolEnvironment.h"
#include "metadata/ToolRequest.h"
#include "platform/Diagnostics.h"

#include <QFileInfo>

#include <algorithm>
#include <csignal>

namespace morvak {

namespace {

using Io = ChildProcess::Io;
using Kind = StayOpenTool::Reply::Kind;

constexpr QByteArrayView stopCommand = "-stay_open\nfalse\n";
constexpr ToolLimits::ms killPatience{1'000};

QDeadlineTimer in(ToolLimits::ms time)
{
    return QDeadlineTimer(time);
}

}  // namespace

StayOpenTool::StayOpenTool(Job job, std::function<QString()> findTool, const Interrupt& quit)
    : m_job(std::move(job)), m_findTool(std::move(findTool)), m_quit(quit)
{
}

StayOpenTool::~StayOpenTool() = default;

bool StayOpenTool::start()
{
    if (m_running)
        return true;
    const QString path = m_findTool();
    if (!QFileInfo::exists(path)) {
        say("❌", QStringLiteral(" not found at: ") + path);
        return false;
    }
    if (!end(ToolLimits::ms(0)))
        return false;
    if (m_job.onlyReads && ChildProcess::abandonedCount() >= mostAbandonedTools) {
        say("❌", QStringLiteral(" not started: too many cannot be ended"));
        return false;
    }
    say("🔧", QStringLiteral(" path: ") + path);
    diagnostic(QStringLiteral("🔧 PERL5LIB: ") + toolLibrary(path));
    m_running = launch(path);
    return m_running;
}

bool StayOpenTool::launch(const QString& path)
{
    QString error;
    m_child = ChildProcess::launch(toolCommand(path, {"-stay_open", "true", "-@", "-"}), error);
    if (!m_child) {
        diagnostic(QStringLiteral("❌ Failed to start ") + m_job.label + QStringLiteral(": ") + error);
        return false;
    }
    say("✅", QStringLiteral(" started in stay-open mode"));
    watchForItsEnd();
    return true;
}

/// The thread sees it only between requests; during one the pipes tell.
void StayOpenTool::watchForItsEnd()
{
    if (m_child->exitDescriptor() < 0)
        return;
    m_childEnded = std::make_unique<QSocketNotifier>(m_child->exitDescriptor(), QSocketNotifier::Read);
    QObject::connect(m_childEnded.get(), &QSocketNotifier::activated, [this] {
        say("❌", QStringLiteral(" ended by itself"));
        (void)end(ToolLimits::ms(0));
    });
}

StayOpenTool::Reply StayOpenTool::request(const QStringList& options, const QString& filePath)
{
    const qint64 number = m_job.lastRequest + 1;
    const std::optional<QByteArray> bytes = requestBytes(options, filePath, number);
    if (!bytes)
        return {.kind = Kind::Refused};
    m_job.lastRequest = number;
    m_child->discardOutput();
    switch (m_child->write(*bytes, in(m_job.limits.answer), &m_quit)) {
        case Io::Done:
            return awaitAnswer(number);
        case Io::Interrupted:
            return {.kind = Kind::Cut};
        case Io::TimedOut:
            return silent(number);
        case Io::EndOfStream:
        case Io::Failed:
            break;
    }
    return lost(QStringLiteral(" stdin write failed: ") + m_child->errorText());
}

StayOpenTool::Reply StayOpenTool::awaitAnswer(qint64 number)
{
    AnswerReader answer(number, m_job.marker);
    QDeadlineTimer deadline = in(m_job.limits.answer);
    const Interrupt* quit = &m_quit;
    QByteArray chunk;
    while (!deadline.hasExpired()) {
        switch (m_child->read(chunk, deadline, quit)) {
            case Io::Done:
                if (answer.feed(chunk))
                    return {Kind::Answered, std::move(answer)};
                if (answer.output().size() > mostAnswerBytes)
                    return endless(number);
                break;
            case Io::TimedOut:
                break;
            case Io::Interrupted:
                quit = nullptr;
                deadline = std::min(deadline, in(m_job.limits.quitGrace));
                break;
            case Io::EndOfStream:
                return lost(QStringLiteral(" ended before ") + QString::fromLatin1(readyMarker(number)));
            case Io::Failed:
                return lost(QStringLiteral(" stdout read failed: ") + m_child->errorText());
        }
    }
    return quit ? silent(number) : Reply{.kind = Kind::Cut};
}

StayOpenTool::Reply StayOpenTool::lost(const QString& line)
{
    say("❌", line);
    return {.kind = Kind::Lost};
}

StayOpenTool::Reply StayOpenTool::silent(qint64 number)
{
    say("⏱️", QStringLiteral(" timeout waiting for ") + QString::fromLatin1(readyMarker(number)) +
                      QStringLiteral(" — restarting"));
    return {.kind = Kind::Silent};
}

StayOpenTool::Reply StayOpenTool::endless(qint64 number)
{
    say("⏱️", QStringLiteral(" answer without an end instead of ") +
                      QString::fromLatin1(readyMarker(number)) + QStringLiteral(" — restarting"));
    return {.kind = Kind::Silent};
}

bool StayOpenTool::drop()
{
    return end(m_quit.isRaised() ? ToolLimits::ms(0) : m_job.limits.dropPatience);
}

void StayOpenTool::stop()
{
    const ToolLimits::ms patience =
        m_quit.isRaised() ? m_job.limits.quitStopPatience : m_job.limits.stopPatience;
    // A write error tells that the tool is gone already.
    if (m_running)
        (void)m_child->write(stopCommand, in(patience));
    if (end(patience))
        say("✅", QStringLiteral(" stopped"));
}

/// Waits for the child to end by itself for `patience`, or until the application quits; then makes it.
bool StayOpenTool::end(ToolLimits::ms patience)
{
    m_running = false;
    if (!m_child)
        return true;
    if (m_childEnded) {
        m_childEnded->setEnabled(false);
        m_childEnded.release()->deleteLater();  // it may be what calls
    }
    m_child->closePipes();
    const Interrupt* quit = m_quit.isRaised() ? nullptr : &m_quit;
    if (m_child->waitForExit(in(patience), quit) || endsAfter(SIGINT, m_job.limits.interruptPatience) ||
        endsAfter(SIGKILL, killPatience)) {
        m_child.reset();
        return true;
    }
    say("❌", QStringLiteral(" could not be ended: ") + QString::number(m_child->pid()));
    if (!m_job.onlyReads)
        return false;
    m_child->abandon();
    m_child.reset();
    return true;
}

bool StayOpenTool::endsAfter(int signal, ToolLimits::ms patience)
{
    m_child->sendSignal(signal);
    return m_child->waitForExit(in(patience));
}

void StayOpenTool::say(const char* symbol, const QString& text) const
{
    diagnostic(QString::fromUtf8(symbol) + u' ' + m_job.label + text);
}

}  // namespace morvak
