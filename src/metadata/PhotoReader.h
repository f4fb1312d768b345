#pragma once

#include "metadata/SerialQueue.h"
#include "metadata/StayOpenTool.h"
#include "metadata/ToolAnswer.h"

#include <shared_mutex>

namespace morvak {

/// Reads photos through a stay-open exiftool of its own, on a thread of its own: one answer takes a tenth of
/// the time of a run of its own.
class PhotoReader {
public:
    /// `quit` must outlive the reader.
    PhotoReader(const ToolLimits& limits, std::function<QString()> findTool, const Interrupt& quit);

    void start();
    void stop();

    /// What the tool prints for these options and this file; unasked when the path is no regular file's or
    /// cannot be sent, and at once when the application quits. Where the reader cannot start or dies over the
    /// request, a run of its own is tried. Blocks; any thread but the main one.
    [[nodiscard]] ToolAnswer read(const QStringList& options, const QString& filePath);

    /// After `quit` was raised: ends the tool and then the thread.
    void close();

    /// Waits for that, and for the calls of `read` that are still on their way out.
    void wait();

private:
    /// None: the tool was no help, and the file may be tried without it.
    using Result = std::optional<ToolAnswer>;

    void answer(const QStringList& options, const QString& filePath, const std::function<void(Result)>& hand);

    const ToolLimits m_limits;
    const std::function<QString()> m_findTool;
    const Interrupt& m_quit;
    StayOpenTool m_tool;
    std::shared_mutex m_inside;  // held shared by every call of read
    SerialQueue m_queue;
};

}  // namespace morvak
