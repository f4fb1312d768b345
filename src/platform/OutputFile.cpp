#include "platform/OutputFile.h"

#include "platform/Diagnostics.h"

#include <QFileInfo>

namespace morvak {

namespace {

constexpr qsizetype mostWaiting = 64 * 1024;

}  // namespace

OutputFile::OutputFile(const QString& path) : m_file(path)
{
    // A device would be replaced by a file, for those who may do so.
    if (const QFileInfo there(path); there.exists() && !there.isFile())
        fail(QStringLiteral("geen gewoon bestand"));
    // Unbuffered: QSaveFile of Qt 6.4 commits as if all were well when the flush of its buffer failed.
    else if (!m_file.open(QFile::WriteOnly | QFile::Unbuffered))
        fail(m_file.errorString());
}

bool OutputFile::write(QByteArrayView part)
{
    if (!m_intact)
        return false;
    m_waiting.append(part);
    return m_waiting.size() < mostWaiting || flush();
}

bool OutputFile::commit()
{
    if (!m_intact || !flush())
        return false;
    return m_file.commit() || fail(m_file.errorString());
}

bool OutputFile::flush()
{
    for (QByteArrayView rest = m_waiting; !rest.isEmpty();) {
        const qint64 written = m_file.write(rest.data(), rest.size());
        if (written <= 0)
            return fail(m_file.errorString());
        rest = rest.sliced(written);
    }
    m_waiting.resize(0);
    return true;
}

bool OutputFile::fail(const QString& reason)
{
    diagnostic(QStringLiteral("⚠️ %1 is niet geschreven: %2").arg(m_file.fileName(), reason));
    m_intact = false;
    return false;
}

}  // namespace morvak
