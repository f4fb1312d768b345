#pragma once

#include "metadata/AnswerReader.h"
#include "metadata/ToolConfig.h"
#include "platform/ChildProcess.h"

#include <QSocketNotifier>
#include <QStringList>

namespace morvak {

/// One long-lived exiftool in its stay-open mode: it takes requests line by line and ends each answer with a
/// numbered marker.
///
/// Belongs to one thread with an event loop, which must outlive it; entries of that thread's queue are all
/// that touches it. It never retries by itself. A tool that dies between requests is reaped at once. Each
/// failure leaves a diagnostic line.
class StayOpenTool {
public:
    struct Job {
        QString label;  ///< names the tool in the diagnostic lines
        AnswerReader::Marker marker = AnswerReader::Marker::Anywhere;
        qint64 lastRequest = 0;  ///< requests are numbered from the next one on, across restarts
        bool onlyReads = false;  ///< one that cannot be ended does no harm: it is abandoned for a fresh one
        ToolLimits limits;
    };

    struct Reply {
        enum class Kind {
            Answered,
            Lost,     ///< the tool has died, or takes no more requests
            Silent,   ///< no answer within the limit, or one without an end
            Cut,      ///< the application quits, and the answer did not come within the grace
            Refused,  ///< the path must not be sent; nothing was
        };
        Kind kind = Kind::Lost;
        AnswerReader answer{0};  ///< what was answered
    };

    /// `quit` ends waits early; it must outlive the tool.
    StayOpenTool(Job job, std::function<QString()> findTool, const Interrupt& quit);
    ~StayOpenTool();
    StayOpenTool(const StayOpenTool&) = delete;
    StayOpenTool& operator=(const StayOpenTool&) = delete;

    [[nodiscard]] bool isRunning() const { return m_running; }

    /// Launches the tool unless it runs; whether it runs then.
    bool start();

    /// One attempt at one request; only while running. What the tool has left unread is thrown away first. A
    /// tool that did not answer must be dropped.
    [[nodiscard]] Reply request(const QStringList& options, const QString& filePath);

    /// Ends the tool without another word: its pipes are closed, then SIGINT, then SIGKILL. False when it
    /// could not be ended (the kernel holds it back) and may still write; it is tried again before the next
    /// start.
    bool drop();

    /// Tells the tool to end, and ends it when it does not.
    void stop();

private:
    [[nodiscard]] Reply awaitAnswer(qint64 number);
    [[nodiscard]] Reply lost(const QString& line);
    [[nodiscard]] Reply silent(qint64 number);
    [[nodiscard]] Reply endless(qint64 number);
    [[nodiscard]] bool launch(const QString& path);
    void watchForItsEnd();
    [[nodiscard]] bool end(ToolLimits::ms patience);
    [[nodiscard]] bool endsAfter(int signal, ToolLimits::ms patience);
    void say(const char* symbol, const QString& text) const;

    Job m_job;
    std::function<QString()> m_findTool;
    const Interrupt& m_quit;
    std::unique_ptr<ChildProcess> m_child;
    std::unique_ptr<QSocketNotifier> m_childEnded;
    bool m_running = false;
};

}  // namespace morvak
