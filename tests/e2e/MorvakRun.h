#pragma once

#include "model/SetData.h"

#include <QHash>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace morvak::test {

/// The real program on a private profile with one shoot, whose folder is watched, and what came of the
/// photos.
class MorvakRun {
public:
    MorvakRun();
    ~MorvakRun();

    /// Starts the program and waits until it watches.
    void start();
    /// For what is started from now on, exiftool among it.
    void setEnvironment(const QString& name, const QString& value) { m_extra.insert(name, value); }

    void scan(const SetData& set);
    /// Scans without waiting for an answer.
    void type(const SetData& set) { m_process.write(set.toQRText().toUtf8() + "\n\n"); }

    /// SIGKILL; waits until the program is gone.
    void kill();
    void signal(int number) const { ::kill(pid_t(processId()), number); }
    void signalTools(int number) const;
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// Asks for the end with this signal and waits; the milliseconds it took, or -1 when it does not end
    /// well.
    qint64 quit(int signal);
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }

    [[nodiscard]] QString path(const QString& name) const { return folder() + u'/' + name; }
    [[nodiscard]] QString folder() const { return m_root.filePath(QStringLiteral("photos")); }
    [[nodiscard]] QString storeFile() const
    {
        return m_root.filePath(QStringLiteral("data/Morvak/shoots.json"));
    }
    /// A place for what the photos' folder shall not hold.
    [[nodiscard]] QString elsewhere(const QString& name) const { return m_root.filePath(name); }

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
    QHash<QString, QString> m_extra;
    QProcess m_process;
    QStringList m_lines;
    QByteArray m_unfinished;
};

/// The whole content of a file; empty when it cannot be read.
[[nodiscard]] QByteArray contentOf(const QString& path);

/// A JPEG of a few kilobytes, the same each time.
[[nodiscard]] QByteArray smallPhoto();

/// How many activations this content of a store file holds; -1 when it is no whole store of one shoot.
[[nodiscard]] qsizetype activationsIn(const QByteArray& store);

/// The set whose tags these are, all of them and unharmed; null when they are none's.
[[nodiscard]] const SetData* setOfTags(const QJsonObject& tags, const QList<SetData>& sets);

/// The bytes of a RAW container's largest strip, where the camera put the picture.
[[nodiscard]] QByteArray rawStrip(const QString& path);

}  // namespace morvak::test
