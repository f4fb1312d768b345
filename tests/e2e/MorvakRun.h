#pragma once

#include "model/SetData.h"

#include <QHash>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace morvak::test {

/// The real program on a private profile with one shoot, whose folder is watched, and what came of the
/// photos.
class MorvakRun {
public:
    MorvakRun();
    ~MorvakRun();

    /// Starts the program and waits until it watches.
    void start();
    void scan(const SetData& set);
    void kill() { m_process.kill(); }

    /// Asks for the end with this signal and waits; the milliseconds it took, or -1 when it does not end
    /// well.
    qint64 quit(int signal);
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }

    [[nodiscard]] QString path(const QString& name) const { return folder() + u'/' + name; }
    [[nodiscard]] QString folder() const { return m_root.filePath(QStringLiteral("photos")); }

    /// Writes a photo under its final name, as fast as it goes.
    void drop(const QString& name, const QByteArray& bytes) const;

    /// All lines of standard output so far.
    [[nodiscard]] const QStringList& lines();
    [[nodiscard]] qsizetype count(const QString& textInLine);

    /// Tags of the photos in the folder, by file name, read by one run of exiftool.
    [[nodiscard]] QHash<QString, QJsonObject> readBack() const;

    /// Names in the folder that are neither photos nor anything the test put there.
    [[nodiscard]] QStringList leftovers() const;

    /// Processes started by this program that still exist, as process ids.
    [[nodiscard]] QList<qint64> exifTools() const;

private:
    [[nodiscard]] QProcessEnvironment environment() const;

    QTemporaryDir m_root;
    QProcess m_process;
    QStringList m_lines;
    QByteArray m_unfinished;
};

/// The bytes of a RAW container's largest strip, where the camera put the picture.
[[nodiscard]] QByteArray rawStrip(const QString& path);

}  // namespace morvak::test
