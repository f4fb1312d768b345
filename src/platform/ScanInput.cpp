#include "platform/ScanInput.h"

#include "platform/Diagnostics.h"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace morvak {

namespace {

constexpr qsizetype longestScan = 64 * 1024;

}  // namespace

ScanInput::ScanInput(int fd, QObject* parent)
    : QObject(parent), m_fd(fd), m_notifier(fd, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &ScanInput::readAvailable);
}

void ScanInput::readAvailable()
{
    char buffer[4096];
    const ssize_t n = ::read(m_fd, buffer, sizeof buffer);
    if (n < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (n <= 0) {
        m_notifier.setEnabled(false);
        m_unfinishedLine += "\n\n";
    } else {
        m_unfinishedLine.append(buffer, n);
    }
    takeLines();
}

void ScanInput::takeLines()
{
    qsizetype end = 0;
    while ((end = m_unfinishedLine.indexOf('\n')) >= 0) {
        QByteArray line = m_unfinishedLine.first(end);
        m_unfinishedLine.remove(0, end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty())
            takeScan();
        else
            m_scan += line + '\n';
    }
    if (m_scan.size() + m_unfinishedLine.size() > longestScan) {
        diagnostic(QStringLiteral("⚠️ Scan te lang — overgeslagen"));
        m_scan.clear();
        m_unfinishedLine.clear();
    }
}

void ScanInput::takeScan()
{
    if (const QByteArray scan = std::exchange(m_scan, {}); !scan.isEmpty())
        Q_EMIT scanned(QString::fromUtf8(scan));
}

}  // namespace morvak
