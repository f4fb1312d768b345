#pragma once

#include "metadata/FolderMetadata.h"
#include "metadata/ToolConfig.h"
#include "platform/ChildProcess.h"

#include <QStringList>

#include <functional>
#include <shared_mutex>

namespace morvak {

/// Reads the photos of a whole folder with runs of exiftool, which work in that folder, on some hundreds of
/// them each.
class FolderReader {
public:
    /// `quit` must outlive the reader.
    FolderReader(const FolderLimits& limits, std::function<QString()> findTool, const Interrupt& quit);

    /// The regular files directly in `folder`, hidden ones included, whose lower-cased extension is among
    /// `extensions`; no tool runs when there are none. A run that takes longer than its limit, or whose
    /// output is no UTF-8, fails for its own photos only; after two such runs in a row the tool is not asked
    /// again. Ends early when it is given up, and empty when the application quits. Blocks; any thread but
    /// the main one.
    [[nodiscard]] FolderMetadata read(const QString& folder, const QSet<QString>& extensions,
                                      const ReadingControl& control = {});

    /// After `quit` was raised: waits for the calls of `read` that are still on their way out.
    void wait();

private:
    [[nodiscard]] QList<SubjectAndDate> rowsOf(const QString& folder, const QStringList& names,
                                               const ReadingControl& control) const;
    [[nodiscard]] std::optional<QList<SubjectAndDate>> batchRows(const QString& folder,
                                                                 const QStringList& names) const;

    const FolderLimits m_limits;
    const std::function<QString()> m_findTool;
    const Interrupt& m_quit;
    std::shared_mutex m_inside;  // held shared by every call of read
};

}  // namespace morvak
