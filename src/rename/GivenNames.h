#pragma once

#include <QMultiHash>
#include <QString>

namespace morvak {

class FolderHandle;

/// The names of the copies that one run has made in a folder, so that it never replaces one of its own where
/// the file system takes two names for one: it may ignore case or the way in which an accent is written.
class GivenNames {
public:
    void add(const QString& name);

    /// Whether a file written under `name` would replace one of those that were added.
    [[nodiscard]] bool isTaken(const FolderHandle& folder, const QString& name) const;

private:
    QMultiHash<QString, QString> m_names;  // by what any file system might make of them
};

}  // namespace morvak
