#include "platform/KeptFile.h"

#include "platform/Diagnostics.h"
#include "platform/UnbufferedWriting.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace morvak {

namespace {

/// Far above what any user's sets take (10,000 of them fill 5 MB), and within what the JSON reader can hold.
constexpr qint64 mostBytes = qint64(256) << 20;
constexpr qint64 chunkBytes = qint64(1) << 20;

/// Empty when `file` is open for reading; the reason otherwise. A pipe is not opened: that would wait.
QString openRegular(QFile& file)
{
    if (!QFileInfo(file).isFile())
        return QStringLiteral("geen gewoon bestand");
    return file.open(QFile::ReadOnly) ? QString() : file.errorString();
}

QString writeAll(const QString& path, const QByteArray& content)
{
    if (content.size() > mostBytes)  // it could not be read back
        return QStringLiteral("te groot");
    QSaveFile target(path);
    if (const QString problem = openUnbuffered(target); !problem.isEmpty())
        return problem;
    const QString problem = appendTo(target, content);
    return problem.isEmpty() ? putInPlace(target) : problem;
}

QString copyAll(const QString& from, const QString& to)
{
    QFile source(from);
    if (const QString problem = openRegular(source); !problem.isEmpty())
        return problem;
    QSaveFile target(to);
    if (const QString problem = openUnbuffered(target); !problem.isEmpty())
        return problem;
    target.setPermissions(source.permissions());
    while (!source.atEnd()) {
        const QByteArray chunk = source.read(chunkBytes);
        if (source.error() != QFile::NoError)
            return source.errorString();
        if (const QString problem = appendTo(target, chunk); !problem.isEmpty())
            return problem;
    }
    return putInPlace(target);
}

QString freeNameBeside(const QString& path)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString base = path + QStringLiteral(".onleesbaar-") + stamp;
    QString name = base;
    for (int n = 2; QFileInfo::exists(name); ++n)
        name = QStringLiteral("%1-%2").arg(base).arg(n);
    return name;
}

}  // namespace

KeptFile::KeptFile(QString path) : m_path(std::move(path)) {}

std::optional<QByteArray> KeptFile::read()
{
    m_mayBeReplaced = false;
    if (!QFileInfo::exists(m_path))
        return std::nullopt;
    QFile file(m_path);
    QString problem = openRegular(file);
    QByteArray content;
    if (problem.isEmpty() && file.size() > mostBytes)
        problem = QStringLiteral("te groot");
    if (problem.isEmpty()) {
        content = file.readAll();
        if (file.error() != QFile::NoError)
            problem = file.errorString();
    }
    if (problem.isEmpty())
        return content;
    reject(problem);
    return std::nullopt;
}

void KeptFile::reject(const QString& reason)
{
    diagnostic(QStringLiteral("⚠️ %1 is niet gelezen: %2").arg(m_path, reason));
}

bool KeptFile::replace(const QByteArray& content)
{
    const QString problem = putInPlace(content);
    if (!problem.isEmpty() && problem != m_problem)
        diagnostic(QStringLiteral("⚠️ %1 is niet bewaard: %2").arg(m_path, problem));
    m_problem = problem;
    return problem.isEmpty();
}

QString KeptFile::putInPlace(const QByteArray& content)
{
    if (!QDir().mkpath(QFileInfo(m_path).path()))
        return QStringLiteral("de map kan niet gemaakt worden");
    if (!m_mayBeReplaced && QFileInfo::exists(m_path)) {
        if (const QString problem = copyAside(); !problem.isEmpty())
            return QStringLiteral("het onleesbare bestand kan niet opzij: ") + problem;
    }
    const QString problem = writeAll(m_path, content);
    m_mayBeReplaced = m_mayBeReplaced || problem.isEmpty();
    return problem;
}

QString KeptFile::copyAside()
{
    const QString copy = freeNameBeside(m_path);
    const QString problem = copyAll(m_path, copy);
    m_mayBeReplaced = problem.isEmpty();
    if (m_mayBeReplaced)
        diagnostic(QStringLiteral("⚠️ %1 is opzij gezet als %2").arg(m_path, copy));
    return problem;
}

}  // namespace morvak
