#pragma once

#include "platform/Diagnostics.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <cstdio>

#include <unistd.h>

namespace morvak::test {

/// Catches the diagnostic lines that are written while it lives.
class CapturedOutput {
public:
    CapturedOutput()
    {
        flush();
        if (::pipe(m_pipe) == 0) {
            m_saved = ::dup(STDOUT_FILENO);
            ::dup2(m_pipe[1], STDOUT_FILENO);
            ::close(m_pipe[1]);
        }
    }
    /// What nobody took, the report of a failed check among it, goes where it would have gone.
    ~CapturedOutput() { std::fputs(take().toUtf8().constData(), stdout); }
    Q_DISABLE_COPY_MOVE(CapturedOutput)

    /// What was written until now; nothing more is caught after that. Must fit a pipe.
    QString take()
    {
        if (m_saved < 0)
            return {};
        flush();
        ::dup2(m_saved, STDOUT_FILENO);  // closes the last writing end, so that reading comes to an end
        ::close(m_saved);
        m_saved = -1;
        QByteArray text;
        char chunk[4096];
        for (ssize_t n = 0; (n = ::read(m_pipe[0], chunk, sizeof chunk)) > 0;)
            text.append(chunk, n);
        ::close(m_pipe[0]);
        return QString::fromUtf8(text);
    }

private:
    static void flush()
    {
        std::fflush(stdout);
        flushDiagnostics(std::chrono::seconds(5));
    }

    int m_pipe[2] = {-1, -1};
    int m_saved = -1;
};

}  // namespace morvak::test
