#pragma once

#include <QByteArray>
#include <QSaveFile>

namespace morvak {

/// A file that is written for the user, in parts, and appears at its path in one step when it is complete.
///
/// Until `commit` succeeds nothing has changed at the path; the parts lie in a temporary file beside it,
/// which goes away with this object. The first thing that goes wrong stops the writing and is told in a
/// diagnostic line. One thread at a time.
class OutputFile {
public:
    /// `path` may name an existing regular file, or nothing yet in an existing folder.
    explicit OutputFile(const QString& path);

    [[nodiscard]] bool intact() const { return m_intact; }
    bool write(QByteArrayView part);
    bool commit();

private:
    bool flush();
    /// False, and told, when there is a problem.
    bool succeed(const QString& problem);
    bool fail(const QString& reason);

    QSaveFile m_file;
    QByteArray m_waiting;  // small parts, gathered
    bool m_intact = true;
};

}  // namespace morvak
