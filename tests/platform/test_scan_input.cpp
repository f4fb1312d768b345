#include "platform/ScanInput.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <fcntl.h>
#include <unistd.h>

using namespace morvak;

class TestScanInput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesUpToAnEmptyOneAreAScan_data();
    void linesUpToAnEmptyOneAreAScan();
    void endlessScanIsGivenUp();

private:
    static void send(int fd, const QByteArray& bytes)
    {
        QCOMPARE(::write(fd, bytes.constData(), size_t(bytes.size())), bytes.size());
        QCoreApplication::processEvents();
    }
};

void TestScanInput::linesUpToAnEmptyOneAreAScan_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QStringList>("scans");
    QTest::newRow("one") << QByteArrayList{"SET:1\nBRAND:N\n\n"}
                         << QStringList{QStringLiteral("SET:1\nBRAND:N\n")};
    QTest::newRow("in pieces") << QByteArrayList{"SE", "T:1\nBRA", "ND:\xC3", "\xA9\n", "\n"}
                               << QStringList{QStringLiteral("SET:1\nBRAND:é\n")};
    QTest::newRow("two, CR LF, blank lines between")
        << QByteArrayList{"SET:1\r\n\r\n\r\n\r\nSET:2\r\n\r\n"}
        << QStringList{QStringLiteral("SET:1\n"), QStringLiteral("SET:2\n")};
    QTest::newRow("ended by the end of the input")
        << QByteArrayList{"SET:1"} << QStringList{QStringLiteral("SET:1\n")};
    QTest::newRow("nothing") << QByteArrayList{} << QStringList{};
}

void TestScanInput::linesUpToAnEmptyOneAreAScan()
{
    QFETCH(QByteArrayList, pieces);
    QFETCH(QStringList, scans);
    int pipe[2];
    QCOMPARE(::pipe2(pipe, O_CLOEXEC), 0);
    ScanInput input(pipe[0]);
    QStringList scanned;
    connect(&input, &ScanInput::scanned, this, [&](const QString& text) { scanned.append(text); });
    for (const QByteArray& piece : pieces)
        send(pipe[1], piece);
    ::close(pipe[1]);
    QTRY_COMPARE(scanned, scans);
    QCoreApplication::processEvents();
    QCOMPARE(scanned, scans);
    ::close(pipe[0]);
}

void TestScanInput::endlessScanIsGivenUp()
{
    int pipe[2];
    QCOMPARE(::pipe2(pipe, O_CLOEXEC), 0);
    ScanInput input(pipe[0]);
    QSignalSpy scans(&input, &ScanInput::scanned);
    for (int i = 0; i < 20; ++i)
        send(pipe[1], QByteArray(4000, 'x'));
    send(pipe[1], "\n\nSET:1\n\n");
    QTRY_COMPARE(scans.constLast().constFirst().toString(), QStringLiteral("SET:1\n"));
    ::close(pipe[1]);
    ::close(pipe[0]);
}

MORVAK_TEST(TestScanInput);
#include "test_scan_input.moc"
