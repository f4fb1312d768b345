#include "platform/CoalescingThread.h"
#include "platform/SoundWave.h"
#include "support/TestMain.h"

#include <QSemaphore>
#include <QtEndian>

#include <atomic>
#include <cstdlib>
#include <memory>

using namespace morvak;

class TestSound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void waveIsShortAndWithoutClicks();
    void asksWhileBusyBecomeOne();
    void endIsNotHeldUpByWorkThatHangs();
};

void TestSound::waveIsShortAndWithoutClicks()
{
    const QByteArray wave = activationSoundWave();
    QCOMPARE(qFromLittleEndian<quint32>(wave.constData() + 4), quint32(wave.size() - 8));
    QCOMPARE(qFromLittleEndian<quint32>(wave.constData() + 40), quint32(wave.size() - 44));
    int loudest = 0;
    int steepest = 0;
    int last = 0;
    for (qsizetype at = 44; at < wave.size(); at += 2) {
        const int sample = qFromLittleEndian<qint16>(wave.constData() + at);
        loudest = std::max(loudest, std::abs(sample));
        if (at < 48 || at > wave.size() - 400)
            steepest = std::max(steepest, std::abs(sample - last));
        last = sample;
    }
    QVERIFY(loudest > 5'000 && loudest < 20'000);
    QVERIFY(steepest < 100);
}

void TestSound::asksWhileBusyBecomeOne()
{
    struct Shared {
        QSemaphore begun;
        QSemaphore mayEnd;
    };
    const auto shared = std::make_shared<Shared>();
    CoalescingThread thread([shared] {
        shared->begun.release();
        shared->mayEnd.acquire();
    });
    thread.ask();
    QVERIFY(shared->begun.tryAcquire(1, 5000));
    for (int i = 0; i < 100; ++i)
        thread.ask();
    shared->mayEnd.release(100);
    QVERIFY(shared->begun.tryAcquire(1, 5000));
    QVERIFY(!shared->begun.tryAcquire(1, 50));
}

void TestSound::endIsNotHeldUpByWorkThatHangs()
{
    const auto begun = std::make_shared<QSemaphore>();
    const auto never = std::make_shared<QSemaphore>();
    {
        CoalescingThread thread([begun, never] {
            begun->release();
            never->acquire();
        });
        thread.ask();
        QVERIFY(begun->tryAcquire(1, 5000));
    }
    never->release();
}

MORVAK_TEST(TestSound);
#include "test_sound.moc"
