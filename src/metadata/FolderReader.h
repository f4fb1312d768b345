#pragma once

#include "metadata/FolderRows.h"
#include "platform/ChildProcess.h"

#include <QStringList>

#include <chrono>
#include <functional>
#include <shared_mutex>

namespace morvak {

/// Reads the photos of a whole folder with one run of exiftool, which works in that folder.
class FolderReader {
public:
    /// `limit` is for the whole run; `quit` must outlive the reader.
    FolderReader(std::chrono::milliseconds limit, std::function<QString()> findTool, const Interrupt& quit);

    /// The regular files directly in `folder`, hidden ones included, whose lower-cased extension is among
    /// `extensions`; no tool runs when there are none. Files whose names the tool would print changed are
    /// left out with a diagnostic line. Empty on any failure: the folder cannot be listed, there is no tool,
    /// it takes longer than the limit, the application quits, what it prints is no UTF-8. Blocks; any thread
    /// but the main one.
    [[nodiscard]] QList<SubjectAndDate> read(const QString& folder, const QSet<QString>& extensions);

    /// After `quit` was raised: waits for the calls of `read` that are still on their way out.
    void wait();

private:
    [[nodiscard]] QByteArray output(const QString& folder, const QStringList& names) const;

    const std::chrono::milliseconds m_limit;
    const std::function<QString()> m_findTool;
    const Interrupt& m_quit;
    std::shared_mutex m_inside;  // held shared by every call of read
};

}  // namespace morvak
