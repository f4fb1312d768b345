#pragma once

#include "metadata/FolderMetadata.h"
#include "rename/RawRenameSummary.h"

#include <QSet>

#include <functional>
#include <optional>
#include <stop_token>

namespace morvak {

/// Copies the tagged RAW and JPEG files of a folder into another one, under names from their metadata: the
/// set description that tagging wrote into them and a running number per name, in the order in which they
/// were taken. The source folder stays as it is.
///
/// Copies keep their times and replace what lies under their name in one step; nothing is written outside the
/// destination folder. A run never replaces a copy of its own. Stateless; one run at a time into a folder.
class RawRenameService {
public:
    /// What the photos of a folder with these extensions hold: the metadata bridge's `readSubjectsAndDates`.
    /// Must stay callable while a run may be under way.
    using Reading = std::function<FolderMetadata(const QString& in, const QSet<QString>& extensions,
                                                 const ReadingControl& control)>;
    /// How many of all files are done: first of reading their metadata, then of copying them. Called on the
    /// thread of the run, each time first with 0.
    using Progress = std::function<void(qsizetype done, qsizetype total)>;

    /// Lower-case extensions of the files that take part.
    [[nodiscard]] static const QSet<QString>& rawExtensions();

    /// The base name of a file with this subject: the subject without its leading "Set 12," and without
    /// blanks at its ends. None when nothing remains or the subject is "-", which stands for none.
    [[nodiscard]] static std::optional<QString> name(const QString& fromSubject);

    explicit RawRenameService(Reading read) : m_read(std::move(read)) {}

    /// Copies all files, each with the `.xmp` sidecar beside it, into the destination folder, which is made
    /// when it is missing. A file whose metadata could not be read is not copied, only counted. Given up
    /// between files: the summary then ends early. Where the destination is the source folder itself, nothing
    /// is copied. A sidecar that cannot be copied is left out with a diagnostic line. Blocks; any thread but
    /// the main one.
    [[nodiscard]] RawRenameSummary run(const QString& sourceFolder, const QString& destinationFolder,
                                       const Progress& progress = {},
                                       const std::stop_token& giveUp = {}) const;

private:
    Reading m_read;
};

}  // namespace morvak
