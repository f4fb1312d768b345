#include "support/TestMain.h"
#include "watch/LateCards.h"
#include "watch/ReaderHealth.h"

using namespace morvak;
using namespace std::chrono_literals;
using Advice = ReaderHealth::Advice;

namespace {

constexpr ReaderHealth::Time start{};

}  // namespace

/// Whether to look into photos, and what a card that is found late may still do.
class TestReaderHealth : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoInARowMeanAway_data();
    void twoInARowMeanAway();
    void isTriedAgainAfterAPause();
    void lateCardsActivateInTheirOrder();
};

void TestReaderHealth::twoInARowMeanAway_data()
{
    QTest::addColumn<QString>("looks");  // a: answered, u: unanswered
    QTest::addColumn<bool>("isAway");
    QTest::newRow("none") << "" << false;
    QTest::newRow("one") << "u" << false;
    QTest::newRow("two") << "uu" << true;
    QTest::newRow("with an answer in between") << "uauaau" << false;
    QTest::newRow("two after an answer") << "auu" << true;
    QTest::newRow("back") << "uuua" << false;
    QTest::newRow("one after it came back") << "uuuau" << false;
    QTest::newRow("away again") << "uuauu" << true;
}

void TestReaderHealth::twoInARowMeanAway()
{
    QFETCH(const QString, looks);
    ReaderHealth health(30s);
    for (const QChar look : looks) {
        const bool wasAway = health.isAway();
        const bool changed = look == u'a' ? health.answered() : health.unanswered(start);
        QCOMPARE(changed, health.isAway() != wasAway);
    }
    QTEST(health.isAway(), "isAway");
    const bool isAway = health.isAway();
    QCOMPARE(health.advice(false, start), isAway ? Advice::Skip : Advice::Look);
    QCOMPARE(health.advice(true, start), isAway ? Advice::Wait : Advice::Look);
}

void TestReaderHealth::isTriedAgainAfterAPause()
{
    ReaderHealth health(30s);
    QVERIFY(!health.unanswered(start) && health.unanswered(start));
    QCOMPARE(health.nextTry(), start + 30s);
    QCOMPARE(health.advice(false, start + 29s), Advice::Skip);
    QCOMPARE(health.advice(false, start + 30s), Advice::Look);
    QCOMPARE(health.advice(true, start + 31s), Advice::Wait);
    QVERIFY(!health.unanswered(start + 35s));
    QCOMPARE(health.nextTry(), start + 60s);
}

void TestReaderHealth::lateCardsActivateInTheirOrder()
{
    const SetMoment before{QUuid::createUuid(), 1, QUuid::createUuid()};
    SetMoment after = before;
    after.activations = 2;
    LateCards cards;
    for (const quint64 run : {1, 2, 3})
        cards.note(run, before);
    cards.note(4, after);
    QVERIFY(cards.take(2) == before);
    cards.cardActivated(2, before, after);
    QVERIFY(cards.take(1) == before);
    QVERIFY(cards.take(3) == after);
    QVERIFY(cards.take(4) == after);
    QVERIFY(cards.take(3) == std::nullopt);
}

MORVAK_TEST(TestReaderHealth);
#include "test_reader_health.moc"
