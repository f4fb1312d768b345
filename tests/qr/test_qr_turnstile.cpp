#include "qr/Turnstile.h"
#include "support/TestMain.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

using morvak::Turnstile;

class TestQRTurnstile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneAtATimeAndEveryoneInTheEnd();
    void whoeverWaitsCanBeCalledOff();
};

void TestQRTurnstile::oneAtATimeAndEveryoneInTheEnd()
{
    Turnstile turnstile;
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> passed = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 6; ++i)
            threads.emplace_back([&] {
                for (int k = 0; k < 200; ++k) {
                    const auto turn = turnstile.enter({});
                    most = std::max<int>(most, ++inside);
                    ++passed;
                    --inside;
                }
            });
    }
    QCOMPARE(passed.load(), 1200);
    QCOMPARE(most.load(), 1);
}

void TestQRTurnstile::whoeverWaitsCanBeCalledOff()
{
    Turnstile turnstile;
    auto held = turnstile.enter({});
    QVERIFY(held);
    std::atomic<bool> gaveUp = false;
    std::jthread waiting([&](const std::stop_token& stop) { gaveUp = turnstile.enter(stop) == nullptr; });
    waiting.request_stop();
    waiting.join();
    QVERIFY(gaveUp);
    held.reset();
    QVERIFY(turnstile.enter({}));
}

MORVAK_TEST(TestQRTurnstile);

#include "test_qr_turnstile.moc"
