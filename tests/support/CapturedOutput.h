#pragma once

#include "platform/Diagnostics.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <chrono>
#include <cstdio>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace morvak::test {

/// Catches what goes to standard output while it lives, diagnostic lines above all.
class CapturedOutput {
public:
    CapturedOutput() : m_file(::memfd_create("output", MFD_CLOEXEC))
    {
        flush();
        m_saved = ::dup(STDOUT_FILENO);
        ::dup2(m_file, STDOUT_FILENO);
    }
    /// What nobody took, the report of a failed check among it, goes where it would have gone.
    ~CapturedOutput()
    {
        std::fputs(take().toUtf8().constData(), stdout);
        ::close(m_file);
    }
    Q_DISABLE_COPY_MOVE(CapturedOutput)

    /// What was written until now; nothing more is caught after that.
    QString take()
    {
        if (m_saved < 0)
            return {};
        const QString text = caught();
        ::dup2(m_saved, STDOUT_FILENO);
        ::close(std::exchange(m_saved, -1));
        return text;
    }

    /// The lines until now; catching goes on.
    [[nodiscard]] QStringList lines() const { return caught().split(u'\n', Qt::SkipEmptyParts); }

private:
    static void flush()
    {
        std::fflush(stdout);
        flushDiagnostics(std::chrono::seconds(5));
    }

    [[nodiscard]] QString caught() const
    {
        flush();
        QFile file(QStringLiteral("/proc/self/fd/%1").arg(m_file));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    int m_file;
    int m_saved = -1;
};

}  // namespace morvak::test
