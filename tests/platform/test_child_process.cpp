#include "platform/ChildProcess.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using morvak::ChildCommand;
using morvak::ChildProcess;
using morvak::Interrupt;
using Io = ChildProcess::Io;

namespace {

constexpr int longTime = 20'000;
constexpr int shortTime = 50;

std::unique_ptr<ChildProcess> run(const QByteArray& program, const QList<QByteArray>& arguments,
                                  const QList<QByteArray>& environment = {}, const QByteArray& folder = "/")
{
    QString error;
    std::unique_ptr<ChildProcess> child =
        ChildProcess::launch({program, arguments, environment, folder}, error);
    if (!child)
        qWarning() << error;
    return child;
}

std::unique_ptr<ChildProcess> shell(const QByteArray& script)
{
    return run("/bin/sh", {"-c", script}, {"PATH=/usr/bin:/bin"});
}

QByteArray outputOf(ChildProcess& child)
{
    QByteArray all;
    QByteArray chunk;
    while (child.read(chunk, QDeadlineTimer(longTime)) == Io::Done)
        all += chunk;
    return all;
}

bool hasNoChildren()
{
    return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

/// A process that is gone, or dead and waiting for its parent (which is then not us).
bool isOver(pid_t pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    return !stat.open(QIODevice::ReadOnly) || stat.readAll().contains(") Z ");
}

}  // namespace

class TestChildProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void talksThroughItsPipes();
    void getsBytesAsTheyAre();
    void startsClean();
    void saysWhyItCouldNotStart_data();
    void saysWhyItCouldNotStart();
    void tellsHowAWaitEnded();
    void interruptEndsEveryWait();
    void aDeadReaderIsAnErrorNotASignal();
    void aStubbornChildIsKilled();
    void isReapedWhenDestroyedEarly();
    void endsWithItsParent();
};

void TestChildProcess::talksThroughItsPipes()
{
    const auto child = run("/bin/cat", {});
    QVERIFY(child);
    QByteArray chunk;
    QCOMPARE(child->write("hello\n", QDeadlineTimer(longTime)), Io::Done);
    QCOMPARE(child->read(chunk, QDeadlineTimer(longTime)), Io::Done);
    QCOMPARE(chunk, QByteArray("hello\n"));
    child->closePipes();
    QVERIFY(child->waitForExit(QDeadlineTimer(longTime)));
    QVERIFY(hasNoChildren());
}

void TestChildProcess::getsBytesAsTheyAre()
{
    const QTemporaryDir folder;
    const auto child = run("/bin/sh", {"-c", "printf '%s,' \"$@\" \"$V\"; pwd", "name", "\xff", "", "a b\n"},
                           {"V=\xfe=x"}, folder.path().toUtf8());
    QVERIFY(child);
    QCOMPARE(outputOf(*child), QByteArray("\xff,,a b\n,\xfe=x,") + folder.path().toUtf8() + '\n');
}

/// Default signals, nothing blocked, a session of its own, none of our descriptors.
void TestChildProcess::startsClean()
{
    const int leaky = ::dup(STDOUT_FILENO);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto oldHandler = ::signal(SIGINT, SIG_IGN);
    const auto child =
        shell("cat /proc/self/status; echo SESSION $(cut -d' ' -f6 /proc/$$/stat); ls /proc/$$/fd");
    ::signal(SIGINT, oldHandler);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ::close(leaky);
    QVERIFY(child);
    const QByteArray output = outputOf(*child);
    QVERIFY2(output.contains("SigBlk:\t0000000000000000"), output.constData());
    QVERIFY2(output.contains("SigIgn:\t0000000000000000"), output.constData());
    const QByteArray tail = output.sliced(output.indexOf("SESSION "));
    QCOMPARE(tail, "SESSION " + QByteArray::number(child->pid()) + "\n0\n1\n2\n");
}

void TestChildProcess::saysWhyItCouldNotStart_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<QByteArray>("folder");
    QTest::addColumn<QString>("error");
    const QString missing = QStringLiteral("No such file or directory");
    QTest::newRow("no such program") << QByteArray("/nowhere/tool") << QByteArray("/") << missing;
    QTest::newRow("no such folder") << QByteArray("/bin/cat") << QByteArray("/nowhere") << missing;
    QTest::newRow("not executable") << QByteArray("/etc/passwd") << QByteArray("/")
                                    << QStringLiteral("Permission denied");
}

void TestChildProcess::saysWhyItCouldNotStart()
{
    QFETCH(QByteArray, program);
    QFETCH(QByteArray, folder);
    QString error;
    QVERIFY(!ChildProcess::launch({program, {}, {}, folder}, error));
    QTEST(error, "error");
    QVERIFY(hasNoChildren());
}

void TestChildProcess::tellsHowAWaitEnded()
{
    QByteArray chunk;
    const auto over = run("/bin/true", {});
    QCOMPARE(over->read(chunk, QDeadlineTimer(longTime)), Io::EndOfStream);
    const auto silent = run("/bin/sleep", {"1000"});
    QCOMPARE(silent->read(chunk, QDeadlineTimer(shortTime)), Io::TimedOut);
    QCOMPARE(silent->write(QByteArray(1'000'000, 'x'), QDeadlineTimer(shortTime)), Io::TimedOut);
    QVERIFY(!silent->waitForExit(QDeadlineTimer(shortTime)));
}

void TestChildProcess::interruptEndsEveryWait()
{
    const auto child = run("/bin/sleep", {"1000"});
    Interrupt interrupt;
    QByteArray chunk;
    std::thread raiser([&] { interrupt.raise(); });
    QCOMPARE(child->read(chunk, QDeadlineTimer(QDeadlineTimer::Forever), &interrupt), Io::Interrupted);
    raiser.join();
    QCOMPARE(child->write(QByteArray(1'000'000, 'x'), QDeadlineTimer(QDeadlineTimer::Forever), &interrupt),
             Io::Interrupted);
    QVERIFY(!child->waitForExit(QDeadlineTimer(QDeadlineTimer::Forever), &interrupt));

    const auto chatty = shell("while :; do echo x; done");
    QCOMPARE(chatty->read(chunk, QDeadlineTimer(QDeadlineTimer::Forever), &interrupt), Io::Interrupted);
}

void TestChildProcess::aDeadReaderIsAnErrorNotASignal()
{
    const auto child = run("/bin/true", {});
    QVERIFY(child->waitForExit(QDeadlineTimer(longTime)));
    QCOMPARE(child->write("x", QDeadlineTimer(longTime)), Io::Failed);
    QCOMPARE(child->errorText(), QStringLiteral("Broken pipe"));
}

void TestChildProcess::aStubbornChildIsKilled()
{
    const auto child = shell("trap '' INT; echo ready; while :; do sleep 0.05; done");
    QByteArray chunk;
    QCOMPARE(child->read(chunk, QDeadlineTimer(longTime)), Io::Done);
    child->closePipes();
    child->sendSignal(SIGINT);
    QVERIFY(!child->waitForExit(QDeadlineTimer(shortTime)));
    child->sendSignal(SIGKILL);
    QVERIFY(child->waitForExit(QDeadlineTimer(longTime)));
}

void TestChildProcess::isReapedWhenDestroyedEarly()
{
    const pid_t pid = run("/bin/sleep", {"1000"})->pid();
    QCOMPARE(::kill(pid, 0), -1);
    QVERIFY(hasNoChildren());
}

void TestChildProcess::endsWithItsParent()
{
    int ends[2];
    QCOMPARE(::pipe2(ends, O_CLOEXEC), 0);
    const pid_t parent = ::fork();
    if (parent == 0) {
        const auto child = run("/bin/sleep", {"1000"});
        const pid_t pid = child ? child->pid() : -1;
        [[maybe_unused]] const ssize_t n = ::write(ends[1], &pid, sizeof pid);
        ::pause();
        ::_exit(0);
    }
    ::close(ends[1]);
    pid_t grandchild = -1;
    QCOMPARE(::read(ends[0], &grandchild, sizeof grandchild), ssize_t(sizeof grandchild));
    ::close(ends[0]);
    QVERIFY(grandchild > 0 && !isOver(grandchild));
    ::kill(parent, SIGKILL);
    QCOMPARE(::waitpid(parent, nullptr, 0), parent);
    QTRY_VERIFY(isOver(grandchild));
}

MORVAK_TEST(TestChildProcess);
#include "test_child_process.moc"
