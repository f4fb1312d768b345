#pragma once

#include <QString>

#include <optional>

#include <sys/stat.h>

namespace morvak {

/// A folder held open: it stays the same one, whatever happens to its path. What went wrong is told in Dutch.
class FolderHandle {
public:
    enum class Missing {
        Fails,
        IsMade,  ///< with its missing parent folders
    };

    explicit FolderHandle(const QString& path, Missing missing = Missing::Fails);
    ~FolderHandle();
    FolderHandle(const FolderHandle&) = delete;
    FolderHandle& operator=(const FolderHandle&) = delete;

    /// Empty when the folder is open; the reason otherwise.
    [[nodiscard]] const QString& problem() const { return m_problem; }

    /// Also through symbolic links and bind mounts.
    [[nodiscard]] bool isSameAs(const FolderHandle& other) const;

    /// Whether something lies directly in the folder under this plain name.
    [[nodiscard]] bool contains(const QString& name) const { return lookUp(name).has_value(); }

    /// Whether both names lead to one and the same file, as they do on a file system that ignores case.
    [[nodiscard]] bool areOneFile(const QString& name, const QString& otherName) const;

    /// What lies in the folder under this plain name, symbolic links not followed.
    [[nodiscard]] std::optional<struct stat> lookUp(const QString& name) const;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
    QString m_problem;
};

}  // namespace morvak
