#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace morvak {

/// The folder to which a path leads, as the kernel tells folders apart, and where it lies.
struct FolderPlace {
    quint64 device = 0;
    quint64 inode = 0;
    QByteArray path;        ///< without symbolic links
    QByteArray mountPoint;  ///< of the file system that holds it

    [[nodiscard]] bool isSameFolderAs(const FolderPlace& other) const
    {
        return device == other.device && inode == other.inode;
    }

    /// True when the file system that held `before` is not mounted now, and what is found in its place is the
    /// empty folder on which it was mounted, or something below that.
    [[nodiscard]] bool isLeftBehindBy(const FolderPlace& before) const;
};

/// None when the path leads to no folder. May block as long as a lost drive makes it; any thread.
[[nodiscard]] std::optional<FolderPlace> findFolder(const QString& path);

/// The mount point of a mount in the text of /proc/PID/mountinfo (see proc(5)); empty when it is not there.
[[nodiscard]] QByteArray mountPointIn(const QByteArray& mountInfo, const QByteArray& mountId);

}  // namespace morvak
