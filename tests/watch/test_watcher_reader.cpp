#include "support/TestMain.h"
#include "support/WatcherFixture.h"

using namespace morvak;
using namespace std::chrono_literals;
using morvak::test::WatcherFixture;

namespace {

const QString one = QStringLiteral("SET:1\nBRAND:Noord");
const QString two = QStringLiteral("SET:2\nBRAND:Zuid");
const QString three = QStringLiteral("SET:3\nBRAND:West");

const QString away = QStringLiteral("⚠️ exiftool antwoordt niet op vragen over foto's");
const QString back = QStringLiteral("exiftool antwoordt weer");
const QString lateCard = QStringLiteral("⚠️ Setkaart te laat herkend: ");

constexpr LookTimes neverTried{10min, 10min};
constexpr LookTimes soonTried{10min, 20ms};

/// A shoot whose folder is watched and whose first set is active, with a metadata tool that may leave
/// questions about photos unanswered.
class Shooting : public WatcherFixture {
public:
    explicit Shooting(LookTimes times) : WatcherFixture(times)
    {
        store.createShoot(QStringLiteral("Herfst"), {}, {});
        watcher->startWatching(folder.path());
        activate(one);
    }
    void activate(const QString& text) { watcher->setCurrentSet(store.handleScanInput(text)); }

    /// Lets photos arrive until the tool is seen to be away.
    void loseReader()
    {
        setReaderAway(true);
        for (const char* const name : {"first.jpg", "second.jpg"}) {
            const auto tagged = watcher->taggedCount();
            arrive(QLatin1String(name));
            QTRY_COMPARE(watcher->taggedCount(), tagged + 1);
        }
        QTRY_COMPARE(lines(away), 1);
    }
    [[nodiscard]] qsizetype lines(const QString& start) const { return logLines().filter(start).size(); }
    [[nodiscard]] QString currentNumber() const { return watcher->currentSet()->setNumber; }
};

using Change = std::function<void(Shooting&)>;

}  // namespace

/// The metadata tool does not answer when it is asked about photos.
class TestWatcherReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isAskedAboutTwoPhotosOnly();
    void aBurstIsTaggedAllTheSame();
    void rewrittenPhotosWaitForIt();
    void lateCardActivatesAndRelabelsNothing();
    void lateCardGivesWay_data();
    void lateCardGivesWay();
    void theLastOfTwoLateCardsHolds();
    void aPhotoAtFaultIsLeftInPeace();
    void aStuckLookLetsTheOthersPass();
};

void TestWatcherReader::isAskedAboutTwoPhotosOnly()
{
    Shooting shoot(neverTried);
    shoot.loseReader();
    for (int i = 0; i < 6; ++i)
        shoot.arrive(QStringLiteral("%1.jpg").arg(i));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 8);
    QCOMPARE(shoot.questions(QStringLiteral("first.jpg")), 1);
    QCOMPARE(shoot.questions(QStringLiteral("second.jpg")), 1);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(shoot.questions(QStringLiteral("%1.jpg").arg(i)), 0);
    QCOMPARE(shoot.lines(away), 1);
}

/// All looks are under way when the first two go unanswered; the rest of them is held back.
void TestWatcherReader::aBurstIsTaggedAllTheSame()
{
    Shooting shoot(neverTried);
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names.append(QStringLiteral("%1.jpg").arg(i));
    for (const QString& name : names.first(2))
        shoot.holdReading(name);
    for (const QString& name : names.sliced(2))
        shoot.setUnanswered(name);
    for (const QString& name : names)
        shoot.arrive(name);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 12);
    QCOMPARE(shoot.lines(away), 1);
    for (const QString& name : names.sliced(2))
        shoot.setUnanswered(name, false);
    for (const QString& name : names.first(2))
        shoot.allowReading(name);
    QTRY_COMPARE(shoot.lines(back), 1);
    for (const QString& name : names)
        QTRY_VERIFY(shoot.questions(name) > 0);
}

void TestWatcherReader::rewrittenPhotosWaitForIt()
{
    Shooting shoot(soonTried);
    const QString name = QStringLiteral("a.jpg");
    shoot.arrive(name);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    shoot.loseReader();
    shoot.arrive(name, "another picture under the same name");
    QTRY_COMPARE(shoot.lines(QStringLiteral("⚠️ Bestandsnaam hergebruikt")), 1);
    shoot.arrive(QStringLiteral("b.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 4);
    // It is what the tries are made with.
    const qsizetype questions = shoot.questions(name);
    QTRY_VERIFY(shoot.questions(name) > questions + 2);
    QCOMPARE(shoot.writtenNames().count(name), 1);
    shoot.setReaderAway(false);
    QTRY_COMPARE(shoot.writtenNames().count(name), 2);
    QTRY_COMPARE(shoot.lines(back), 1);
    QCOMPARE(shoot.lines(away), 1);
}

void TestWatcherReader::lateCardActivatesAndRelabelsNothing()
{
    Shooting shoot(soonTried);
    shoot.watcher->setDeleteQRCardAfterScan(true);
    shoot.loseReader();
    shoot.showCard(QStringLiteral("kaart.jpg"), two);
    for (const char* const name : {"kaart.jpg", "after.jpg"})
        shoot.arrive(QLatin1String(name));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 4);
    QCOMPARE(shoot.currentNumber(), QStringLiteral("1"));
    shoot.setReaderAway(false);
    QTRY_COMPARE(shoot.lines(lateCard + QStringLiteral("kaart.jpg")), 1);
    QCOMPARE(shoot.currentNumber(), QStringLiteral("2"));
    QCOMPARE(shoot.watcher->setCount(), 1);
    shoot.arrive(QStringLiteral("new.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 5);
    QCOMPARE(shoot.writes.size(), 5);
    QCOMPARE(shoot.writes.constLast().headline, QStringLiteral("Set 2 — Zuid"));
    QCOMPARE(shoot.trashed, QStringList());
    QTRY_VERIFY(shoot.questions(QStringLiteral("after.jpg")) > 0);
}

void TestWatcherReader::lateCardGivesWay_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("current");
    QTest::addColumn<int>("told");
    QTest::newRow("to another set") << Change([](Shooting& shoot) { shoot.activate(three); }) << "3" << 1;
    QTest::newRow("to the same set, scanned again")
        << Change([](Shooting& shoot) { shoot.activate(one); }) << "1" << 1;
    QTest::newRow("to its own") << Change([](Shooting& shoot) { shoot.activate(two); }) << "2" << 0;
    QTest::newRow("to no recognition")
        << Change([](Shooting& shoot) { shoot.watcher->setQrDetectionEnabled(false); }) << "1" << 0;
}

void TestWatcherReader::lateCardGivesWay()
{
    QFETCH(const Change, change);
    QFETCH(const int, told);
    Shooting shoot(soonTried);
    shoot.loseReader();
    const QString card = QStringLiteral("kaart.jpg");
    shoot.showCard(card, two);
    shoot.arrive(card);
    shoot.arrive(QStringLiteral("last.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 4);
    change(shoot);
    const int activations = int(shoot.store.activeShoot()->activationLog.size());
    shoot.setReaderAway(false);
    QTRY_VERIFY(shoot.questions(QStringLiteral("last.jpg")) > 0);  // comes after the card
    QTRY_COMPARE(shoot.lines(lateCard + card), told);
    QTEST(shoot.currentNumber(), "current");
    QCOMPARE(shoot.store.activeShoot()->activationLog.size(), activations);
    QCOMPARE(shoot.watcher->setCount(), 0);
}

void TestWatcherReader::theLastOfTwoLateCardsHolds()
{
    Shooting shoot(soonTried);
    shoot.loseReader();
    shoot.showCard(QStringLiteral("kaart2.jpg"), two);
    shoot.showCard(QStringLiteral("kaart3.jpg"), three);
    for (const char* const name : {"kaart2.jpg", "kaart3.jpg"})
        shoot.arrive(QLatin1String(name));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 4);
    shoot.setReaderAway(false);
    QTRY_COMPARE(shoot.lines(lateCard), 2);
    QCOMPARE(shoot.currentNumber(), QStringLiteral("3"));
}

/// It goes unanswered twice while others are answered: nobody else has to suffer for it.
void TestWatcherReader::aPhotoAtFaultIsLeftInPeace()
{
    Shooting shoot(neverTried);
    const QStringList bad = {QStringLiteral("bad1.jpg"), QStringLiteral("bad2.jpg")};
    for (int i = 0; i < 2; ++i) {
        shoot.setUnanswered(bad[i]);
        for (const QString& name : {bad[i], QStringLiteral("good%1.jpg").arg(i)}) {
            const auto tagged = shoot.watcher->taggedCount();
            shoot.arrive(name);
            QTRY_COMPARE(shoot.watcher->taggedCount(), tagged + 1);
        }
        QTRY_COMPARE(shoot.questions(bad[i]), 2);
    }
    shoot.showCard(QStringLiteral("kaart.jpg"), two);
    shoot.arrive(QStringLiteral("kaart.jpg"));
    QTRY_COMPARE(shoot.currentNumber(), QStringLiteral("2"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 5);
    for (const QString& name : bad)
        QCOMPARE(shoot.questions(name), 2);
    QCOMPARE(shoot.lines(away), 0);
}

/// One look never comes back, as from a dead disk; its photo and the others go on, and in the end its card
/// counts.
void TestWatcherReader::aStuckLookLetsTheOthersPass()
{
    Shooting shoot({1s, 10min});
    const QString card = QStringLiteral("kaart.jpg");
    shoot.showCard(card, two);
    shoot.holdReading(card);
    shoot.arrive(card);
    shoot.arrive(QStringLiteral("after.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 2);
    QCOMPARE(shoot.currentNumber(), QStringLiteral("1"));
    QCOMPARE(shoot.lines(away), 0);
    shoot.allowReading(card);
    QTRY_COMPARE(shoot.currentNumber(), QStringLiteral("2"));
    QCOMPARE(shoot.writes.size(), 2);
}

MORVAK_TEST(TestWatcherReader);
#include "test_watcher_reader.moc"
