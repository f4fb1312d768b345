#include "support/TestMain.h"
#include "watch/WaitingRoom.h"

#include <QRegularExpression>

#include <atomic>

using namespace morvak;
using namespace std::chrono_literals;

namespace {

constexpr WaitLimits shortLimits{2ms, 100, 34};

/// Answers the waiting room from lists, and writes down what came of each run.
struct Room {
    MainThread mainThread;
    QStringList outcomes;
    std::atomic<int> looks = 0;

    WaitingRoom::Outcomes notes()
    {
        return {[this](quint64 run, quint64 size) { note("settled %1 %2", run, size); },
                [this](quint64 run) { note("gone %1", run); },
                [this](quint64 run) { note("released %1", run); },
                [this](quint64 run) { note("held %1", run); }};
    }

    void note(const char* text, quint64 run, quint64 size = 0)
    {
        QString line = QString::fromUtf8(text).arg(run);
        outcomes.append(line.contains(u"%2") ? line.arg(size) : line);
    }
};

using Sizes = QList<qint64>;  // -1: no file

}  // namespace

class TestWaitingRoom : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void settles_data();
    void settles();
    void lockIsTriedOftenAndTogether();
    void outcomesStopWithTheOwner();
    void closesWhileSomebodyWaits();
};

void TestWaitingRoom::settles_data()
{
    QTest::addColumn<Sizes>("sizes");  // the last one repeats
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<int>("looks");
    QTest::newRow("complete from the start") << Sizes{500} << "settled 1 500" << 2;
    QTest::newRow("growing") << Sizes{0, 0, 5000, 9000, 9000} << "settled 1 9000" << 5;
    QTest::newRow("never more than nothing") << Sizes{0} << "settled 1 0" << 100;
    QTest::newRow("gone at once") << Sizes{-1} << "gone 1" << 1;
    QTest::newRow("gone on the way") << Sizes{10, 20, -1} << "gone 1" << 3;
    QTest::newRow("shrinking") << Sizes{20, 10, 10} << "settled 1 10" << 3;
    Sizes forever;
    for (int i = 1; i <= 200; ++i)
        forever.append(i);
    QTest::newRow("growing for ever") << forever << "settled 1 100" << 100;
}

void TestWaitingRoom::settles()
{
    QFETCH(Sizes, sizes);
    QFETCH(QString, outcome);
    Room room;
    FileProbe probe;
    probe.state = [&](const QString&) -> std::optional<FileState> {
        const qint64 size = sizes.at(std::min<qsizetype>(room.looks++, sizes.size() - 1));
        return size < 0 ? std::nullopt : std::optional(FileState{quint64(size), 0});
    };
    WaitingRoom waiting(shortLimits, probe, room.mainThread, room.notes());
    waiting.settle(1, QStringLiteral("/a"));
    QTRY_COMPARE(room.outcomes, QStringList{outcome});
    QTEST(room.looks.load(), "looks");
}

void TestWaitingRoom::lockIsTriedOftenAndTogether()
{
    Room room;
    std::atomic<int> longest = 0;
    FileProbe probe;
    probe.held = [&](const QStringList& paths) {
        longest = std::max(longest.load(), int(paths.size()));
        room.looks += int(paths.count(QStringLiteral("/stuck")));
        QSet<QString> held(paths.begin(), paths.end());
        held.remove(QStringLiteral("/free"));
        if (room.looks > 10)
            held.remove(QStringLiteral("/later"));
        return held;
    };
    WaitingRoom waiting(shortLimits, probe, room.mainThread, room.notes());
    waiting.awaitRelease(1, QStringLiteral("/stuck"));
    waiting.awaitRelease(2, QStringLiteral("/later"));
    waiting.awaitRelease(3, QStringLiteral("/free"));
    const QStringList expected = {QStringLiteral("released 3"), QStringLiteral("released 2"),
                                  QStringLiteral("held 1")};
    QTRY_COMPARE(room.outcomes, expected);
    QCOMPARE(room.looks.load(), 34);
    QVERIFY2(longest > 1, "those that wait are looked at together");
}

void TestWaitingRoom::outcomesStopWithTheOwner()
{
    Room room;
    FileProbe probe;
    probe.state = [&](const QString&) {
        ++room.looks;
        return std::optional(FileState{7, 0});
    };
    {
        WaitingRoom waiting(shortLimits, probe, room.mainThread, room.notes());
        waiting.settle(1, QStringLiteral("/a"));
        while (room.looks < 2)
            QThread::yieldCurrentThread();
        room.mainThread.close();
    }
    QCoreApplication::processEvents();
    QVERIFY(room.outcomes.isEmpty());
}

void TestWaitingRoom::closesWhileSomebodyWaits()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    Room room;
    FileProbe probe;
    probe.state = [&](const QString&) { return std::optional(FileState{quint64(++room.looks), 0}); };
    WaitingRoom waiting(shortLimits, probe, room.mainThread, room.notes());
    waiting.settle(1, QStringLiteral("/a"));
    QTRY_VERIFY(room.looks > 1);
}

MORVAK_TEST(TestWaitingRoom);
#include "test_waiting_room.moc"
