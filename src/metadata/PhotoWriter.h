#pragma once

#include "metadata/SerialQueue.h"
#include "metadata/StayOpenTool.h"
#include "model/Tagging.h"

namespace morvak {

/// Tags photos through a stay-open exiftool of its own, one after another, on a thread of its own.
///
/// A photo that is no regular file, or that somebody has open for writing, is left alone; a temporary file
/// left behind by a tool that was killed is removed, because it would block its photo for ever. A request
/// that gets no answer is sent once more, to a fresh tool and only after the old one has ended.
class PhotoWriter {
public:
    using Completion = std::function<void(bool)>;

    /// `quit` must outlive the writer.
    PhotoWriter(const ToolLimits& limits, std::function<QString()> findTool, const Interrupt& quit);

    void start();
    void stop();

    /// Removes what killed tools have left in a folder. Any thread; it is done before later writes.
    void clearUp(const QString& folder);

    /// `completion` is called once: on the writer's thread, in the order of the calls, or at once with false
    /// when the writer has been closed. Any thread.
    void write(const QString& filePath, const Tagging& tagging, const Completion& completion);

    /// After `quit` was raised: what waits is answered with false, a running request gets its grace, the tool
    /// ends, and then the thread.
    void close();
    void wait() { m_queue.wait(); }

private:
    [[nodiscard]] bool tag(const QString& filePath, const Tagging& tagging);

    const Interrupt& m_quit;
    StayOpenTool m_tool;
    SerialQueue m_queue;
};

}  // namespace morvak
