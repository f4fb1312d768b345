#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace morvak {

/// Scans that arrive as text on a file descriptor, such as a scanner on a serial line or standard input: the
/// lines up to an empty line, or to the end of the input, are one scan. Main thread. A scan that grows beyond
/// any code's capacity is given up with a diagnostic line.
class ScanInput final : public QObject {
    Q_OBJECT

public:
    explicit ScanInput(int fd, QObject* parent = nullptr);

Q_SIGNALS:
    void scanned(const QString& text);

private:
    void readAvailable();
    void takeLines();
    void takeScan();

    int m_fd;
    QSocketNotifier m_notifier;
    QByteArray m_unfinishedLine;
    QByteArray m_scan;
};

}  // namespace morvak
