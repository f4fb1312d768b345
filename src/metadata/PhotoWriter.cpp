#include "metadata/PhotoWriter.h"

#include "metadata/TaggingRequest.h"
#include "metadata/ToolLeftovers.h"
#include "metadata/ToolRequest.h"
#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"

namespace morvak {

namespace {

using Reply = StayOpenTool::Reply;

constexpr int attempts = 2;

bool failed(const QString& filePath, const QString& reason)
{
    diagnostic(QStringLiteral("❌ Failed to tag: ") + lastPathComponent(filePath) + QStringLiteral(" — ") +
               reason);
    return false;
}

bool isReadyForWriting(const QString& filePath)
{
    if (!isSendablePath(filePath))
        return failed(filePath, QStringLiteral("path refused"));
    if (!regularFileState(filePath))
        return failed(filePath, QStringLiteral("not a regular file"));
    if (!heldForWriting({filePath}).isEmpty())
        return failed(filePath, QStringLiteral("open for writing elsewhere"));
    removeLeftover(filePath);
    return true;
}

bool judged(const AnswerReader& answer, const QString& filePath, const SetData& set)
{
    if (!answer.succeeded())
        return failed(filePath, QString::fromUtf8(answer.output()));
    diagnostic(QStringLiteral("✅ Tagged: ") + lastPathComponent(filePath) + QStringLiteral(" → ") +
               set.headline());
    return true;
}

}  // namespace

PhotoWriter::PhotoWriter(const ToolLimits& limits, std::function<QString()> findTool, const Interrupt& quit)
    : m_quit(quit),
      m_tool({.label = QStringLiteral("ExifTool"), .limits = limits}, std::move(findTool), quit),
      m_queue(QStringLiteral("exiftool writer"))
{
}

void PhotoWriter::start()
{
    (void)m_queue.post([this] {
        if (!m_quit.isRaised())
            m_tool.start();
    });
}

void PhotoWriter::stop()
{
    (void)m_queue.post([this] { m_tool.stop(); });
}

void PhotoWriter::clearUp(const QString& folder)
{
    (void)m_queue.post([this, folder] {
        if (!m_quit.isRaised())
            removeLeftovers(folder);
    });
}

void PhotoWriter::write(const QString& filePath, const Tagging& tagging, const Completion& completion)
{
    const bool accepted = m_queue.post([=, this] { completion(tag(filePath, tagging)); });
    if (!accepted)
        completion(failed(filePath, QStringLiteral("quitting")));
}

void PhotoWriter::close()
{
    m_queue.close([this] { m_tool.stop(); });
}

bool PhotoWriter::tag(const QString& filePath, const Tagging& tagging)
{
    const QStringList options = taggingOptions(tagging);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (m_quit.isRaised())
            return failed(filePath, QStringLiteral("quitting"));
        if (!m_tool.start() || !isReadyForWriting(filePath))
            return false;
        const Reply reply = m_tool.request(options, filePath);
        const bool answered = reply.kind == Reply::Kind::Answered;
        if (!answered && !m_tool.drop())
            return failed(filePath, QStringLiteral("the tool cannot be ended"));
        // The tool leaves it too when its photo was deleted under its hands.
        removeLeftover(filePath);
        if (answered)
            return judged(reply.answer, filePath, tagging.set);
    }
    return failed(filePath, QStringLiteral("no answer"));
}

}  // namespace morvak
