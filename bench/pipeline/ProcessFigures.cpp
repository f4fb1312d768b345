#include "ProcessFigures.h"

#include <QDir>
#include <QFile>
#include <QList>

#include <unistd.h>

namespace morvak::bench {

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QString procFolder(qint64 processId)
{
    return QStringLiteral("/proc/%1").arg(processId);
}

/// The number behind `key` in a status file.
qint64 statusValue(const QByteArray& status, const char* key)
{
    for (const QByteArray& line : status.split('\n')) {
        if (line.startsWith(key))
            return line.sliced(qstrlen(key)).simplified().split(' ').constFirst().toLongLong();
    }
    return 0;
}

QStringList threadFolders(qint64 processId)
{
    const QString tasks = procFolder(processId) + QStringLiteral("/task/");
    QStringList folders = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (QString& folder : folders)
        folder.prepend(tasks);
    return folders;
}

/// The process and, below it, its children; each is listed under the thread that started it.
QList<qint64> family(qint64 processId)
{
    QList<qint64> processes{processId};
    for (const QString& thread : threadFolders(processId)) {
        for (const QByteArray& child :
             readAll(thread + QStringLiteral("/children")).simplified().split(' ')) {
            if (!child.isEmpty())
                processes += family(child.toLongLong());
        }
    }
    return processes;
}

}  // namespace

qint64 peakMemory(qint64 processId)
{
    return statusValue(readAll(procFolder(processId) + QStringLiteral("/status")), "VmHWM:") * 1024;
}

std::chrono::milliseconds processorTime(qint64 processId)
{
    qint64 ticks = 0;
    for (const qint64 process : family(processId)) {
        const QByteArray stat = readAll(procFolder(process) + QStringLiteral("/stat"));
        // The name in parentheses may hold blanks; utime and stime are the 12th and 13th fields behind it.
        const QList<QByteArray> fields = stat.sliced(stat.lastIndexOf(')') + 2).split(' ');
        ticks += fields.at(11).toLongLong() + fields.at(12).toLongLong();
    }
    return std::chrono::milliseconds(ticks * 1000 / ::sysconf(_SC_CLK_TCK));
}

qint64 wakeUps(qint64 processId)
{
    qint64 count = 0;
    for (const qint64 process : family(processId)) {
        for (const QString& thread : threadFolders(process))
            count += statusValue(readAll(thread + QStringLiteral("/status")), "voluntary_ctxt_switches:");
    }
    return count;
}

}  // namespace morvak::bench
