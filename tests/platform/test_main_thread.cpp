#include "platform/MainThread.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <thread>

using namespace morvak;

class TestMainThread : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void postsRunInOrderOnTheMainThread();
    void nothingRunsAfterClosing();
};

void TestMainThread::postsRunInOrderOnTheMainThread()
{
    const MainThread port;
    QList<int> seen;
    std::thread worker([&] {
        for (int i = 0; i < 100; ++i)
            port.post([&seen, i] { seen.append(QThread::currentThread() == qApp->thread() ? i : -1); });
    });
    worker.join();
    QVERIFY(seen.isEmpty());
    QTRY_COMPARE(seen.size(), 100);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(seen.at(i), i);
}

void TestMainThread::nothingRunsAfterClosing()
{
    MainThread port;
    const MainThread copy = port;
    int runs = 0;
    copy.post([&] { ++runs; });
    port.close();
    copy.post([&] { ++runs; });
    QCoreApplication::processEvents();
    QCOMPARE(runs, 0);
    QVERIFY(copy.isClosed());
}

MORVAK_TEST(TestMainThread);
#include "test_main_thread.moc"
