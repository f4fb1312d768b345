#include "support/TestMain.h"

#include <QProcess>

#include <csignal>

using namespace Qt::StringLiterals;

class TestSessionEnd : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void windowThatHidesDoesNotStandInTheWay_data();
    void windowThatHidesDoesNotStandInTheWay();
};

void TestSessionEnd::windowThatHidesDoesNotStandInTheWay_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("the session ends: a Quit event") << 0;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestSessionEnd::windowThatHidesDoesNotStandInTheWay()
{
    QFETCH(int, signal);
    QProcess probe;
    probe.start(QStringLiteral(MORVAK_END_PROBE), signal == 0 ? QStringList{u"quit"_s} : QStringList());
    QVERIFY(probe.waitForReadyRead());
    if (signal != 0)
        ::kill(pid_t(probe.processId()), signal);
    QVERIFY(probe.waitForFinished(10'000));
    QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
    QCOMPARE(probe.exitCode(), 0);
    QVERIFY(probe.readAll().endsWith("ended in order\n"));
}

MORVAK_TEST(TestSessionEnd);
#include "test_session_end.moc"
