#include "FakeTool.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace morvak::test {

using namespace std::chrono_literals;

FakeTool::FakeTool(const QByteArray& behaviours)
{
    qputenv("FAKE_EXIFTOOL", QFile::encodeName(m_folder.path()));
    control(QStringLiteral("behaviour"), behaviours);
}

FakeTool::~FakeTool()
{
    qunsetenv("FAKE_EXIFTOOL");
}

ExifToolConfig FakeTool::config() const
{
    ExifToolConfig config;
    config.findTool = [] { return QStringLiteral(FAKE_EXIFTOOL_PATH); };
    for (ToolLimits* limits : {&config.writer, &config.reader}) {
        limits->answer = 1500ms;
        limits->dropPatience = 50ms;
        limits->interruptPatience = 50ms;
        limits->stopPatience = 100ms;
        limits->quitGrace = std::min<ToolLimits::ms>(limits->quitGrace, 100ms);
    }
    return config;
}

QString FakeTool::photo(const QString& name, const QByteArray& contents) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QStringList FakeTool::log() const
{
    QFile file(m_folder.filePath(QStringLiteral("log")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

qsizetype FakeTool::count(const QString& start) const
{
    const QStringList lines = log();
    return std::count_if(lines.begin(), lines.end(),
                         [&](const QString& line) { return line.startsWith(start); });
}

QList<int> childProcesses()
{
    QList<int> children;
    for (const QString& pid : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        // pid (name) state parent ...
        const QByteArray stat = file.readAll();
        const QList<QByteArray> fields = stat.sliced(stat.lastIndexOf(')') + 1).split(' ');
        if (fields.value(2).toInt() == ::getpid())
            children.append(pid.toInt());
    }
    return children;
}

}  // namespace morvak::test
