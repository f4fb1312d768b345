#include "metadata/PhotoReader.h"

#include "metadata/OneShotRun.h"
#include "metadata/ToolEnvironment.h"
#include "metadata/ToolRequest.h"
#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <future>

namespace morvak {

namespace {

using Kind = StayOpenTool::Reply::Kind;

/// Answers are a photo's own bytes; nobody who made the photo can have known these numbers.
qint64 unguessableNumber()
{
    constexpr qint64 least = 1'000'000'000'000'000;
    return least + static_cast<qint64>(QRandomGenerator64::system()->generate64() % (8 * quint64(least)));
}

StayOpenTool::Job readerJob(const ToolLimits& limits)
{
    return {.label = QStringLiteral("ExifTool reader"),
            .marker = AnswerReader::Marker::AtEnd,
            .lastRequest = unguessableNumber(),
            .onlyReads = true,
            .limits = limits};
}

ChildCommand commandFor(const QString& tool, const QStringList& options, const QString& filePath)
{
    QList<QByteArray> arguments;
    for (const QString& option : options)
        arguments.append(option.toUtf8());
    arguments.append(encodeFileName(filePath));
    return toolCommand(tool, arguments);
}

/// None: the tool has died over the request, and another may do better.
std::optional<ToolAnswer> resultOf(const StayOpenTool::Reply& reply)
{
    switch (reply.kind) {
        case Kind::Answered:
            return reply.answer.payload();
        case Kind::Silent:
            return ToolAnswer::Kind::Late;
        case Kind::Cut:
        case Kind::Refused:
            return ToolAnswer::Kind::Unasked;
        case Kind::Lost:
            break;
    }
    return std::nullopt;
}

}  // namespace

PhotoReader::PhotoReader(const ToolLimits& limits, std::function<QString()> findTool, const Interrupt& quit)
    : m_limits(limits),
      m_findTool(findTool),
      m_quit(quit),
      m_tool(readerJob(limits), std::move(findTool), quit),
      m_queue(QStringLiteral("exiftool reader"))
{
}

void PhotoReader::start()
{
    (void)m_queue.post([this] {
        if (!m_quit.isRaised())
            m_tool.start();
    });
}

void PhotoReader::stop()
{
    (void)m_queue.post([this] { m_tool.stop(); });
}

ToolAnswer PhotoReader::read(const QStringList& options, const QString& filePath)
{
    // Before the lock: a disk that is dead keeps this look at the file, and must not keep `wait`.
    if (!isSendablePath(filePath) || !regularFileState(filePath)) {
        diagnostic(QStringLiteral("❌ Failed to read: ") + lastPathComponent(filePath) +
                   QStringLiteral(" — not a regular file"));
        return ToolAnswer::Kind::Unasked;
    }
    const std::shared_lock inside(m_inside);
    const auto promise = std::make_shared<std::promise<Result>>();
    const bool accepted = m_queue.post([this, options, filePath, promise] {
        answer(options, filePath, [&promise](Result result) { promise->set_value(std::move(result)); });
    });
    if (!accepted)
        return ToolAnswer::Kind::Unasked;
    const Result result = promise->get_future().get();
    if (result)
        return *result;
    const QString tool = m_findTool();
    return QFileInfo::exists(tool) ? runToolOnce(commandFor(tool, options, filePath), m_limits.answer, m_quit)
                                   : ToolAnswer::Kind::Unasked;
}

void PhotoReader::close()
{
    m_queue.close([this] { m_tool.stop(); });
}

void PhotoReader::wait()
{
    m_queue.wait();
    const std::unique_lock everybodyIsOut(m_inside);
}

/// The caller of `read` gets its result before a tool that failed is ended.
void PhotoReader::answer(const QStringList& options, const QString& filePath,
                         const std::function<void(Result)>& hand)
{
    if (m_quit.isRaised())
        return hand(ToolAnswer::Kind::Unasked);
    if (!m_tool.start())
        return hand(std::nullopt);
    const StayOpenTool::Reply reply = m_tool.request(options, filePath);
    hand(resultOf(reply));
    if (reply.kind != Kind::Answered)
        m_tool.drop();
}

}  // namespace morvak
