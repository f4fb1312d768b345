#pragma once

#include <QIODevice>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

struct stat;

namespace morvak {

/// What the file system says of a regular file.
struct FileState {
    quint64 size = 0;       ///< bytes
    qint64 modifiedNs = 0;  ///< modification time, nanoseconds since 1970-01-01T00:00:00 UTC
    qint64 changedNs = 0;   ///< the same for what nobody can set: content, name, owner or rights changed
};

[[nodiscard]] FileState fileState(const struct stat& info);

/// Whether nobody has written the file in between, as far as size and modification time tell; times may
/// differ by as much as `toleranceNs`.
[[nodiscard]] bool isUnchanged(const FileState& before, const FileState& now, qint64 toleranceNs = 0);

/// None when nothing is there, or when it is no regular file: a symbolic link, a folder, a pipe. Any thread.
[[nodiscard]] std::optional<FileState> regularFileState(const QString& path);

/// The names in a folder, in no order; none when it cannot be listed. Any thread.
[[nodiscard]] std::optional<QStringList> folderEntries(const QString& folder);

/// Those of `paths` that somebody has open for writing. A read lease tells where the file system knows them
/// and the file is ours; what leases leave undecided is looked up in one pass through the open files of all
/// processes that may be seen. A file that is merely write-protected is free. Writers on other machines of a
/// network share cannot be seen. Any thread.
[[nodiscard]] QSet<QString> heldForWriting(const QStringList& paths);

/// Opens a regular file, not through a symbolic link; null when that fails. Any thread.
[[nodiscard]] std::unique_ptr<QIODevice> openForReading(const QString& path);

/// Removes a regular file; false when it is still there.
bool removeFile(const QString& path);

}  // namespace morvak
