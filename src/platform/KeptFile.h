#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace morvak {

/// A file in which the user's work is kept: read as a whole, replaced in one step, and never overwritten
/// before its content was understood.
///
/// What went wrong is told in diagnostic lines. One thread at a time.
class KeptFile {
public:
    explicit KeptFile(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }

    /// The whole content; none when nothing is there or it cannot be read.
    [[nodiscard]] std::optional<QByteArray> read();

    /// What `read` gave was understood: it may be replaced.
    void accept() { m_mayBeReplaced = true; }

    /// What `read` gave was not understood, for this reason.
    void reject(const QString& reason);

    /// Writes `content` into the file, making missing folders. After a crash, a full disk or a power cut the
    /// file is the old one or the new one. A file that lies there and was not accepted or written by this
    /// object is first copied to `NAME.onleesbaar-TIME` beside it. False when that or the writing failed;
    /// then the old file is still there, and `problem` says why. The same problem again leaves no line.
    bool replace(const QByteArray& content);

    /// Why the last `replace` failed; empty when it worked.
    [[nodiscard]] const QString& problem() const { return m_problem; }

private:
    [[nodiscard]] QString putInPlace(const QByteArray& content);
    [[nodiscard]] QString copyAside();

    QString m_path;
    QString m_problem;
    bool m_mayBeReplaced = false;
};

}  // namespace morvak
