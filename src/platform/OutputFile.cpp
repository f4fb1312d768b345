#include "platform/OutputFile.h"

#include "platform/Diagnostics.h"
#include "platform/UnbufferedWriting.h"

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
    else
        succeed(openUnbuffered(m_file));
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
    return m_intact && flush() && succeed(putInPlace(m_file));
}

bool OutputFile::flush()
{
    const bool written = succeed(appendTo(m_file, m_waiting));
    m_waiting.resize(0);
    return written;
}

bool OutputFile::succeed(const QString& problem)
{
    return problem.isEmpty() || fail(problem);
}

bool OutputFile::fail(const QString& reason)
{
    diagnostic(QStringLiteral("⚠️ %1 is niet geschreven: %2").arg(m_file.fileName(), reason));
    m_intact = false;
    return false;
}

}  // namespace morvak
