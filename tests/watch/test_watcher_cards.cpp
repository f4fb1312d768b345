#include "support/TestMain.h"
#include "support/WatcherFixture.h"

#include <QSignalSpy>

using namespace morvak;
using morvak::test::WatcherFixture;

namespace {

const QString one = QStringLiteral("SET:1\nBRAND:Noord");
const QString two = QStringLiteral("SET:2\nBRAND:Zuid");

class Shooting : public WatcherFixture {
public:
    Shooting()
    {
        store.createShoot(QStringLiteral("Herfst"), {}, {});
        watcher->startWatching(folder.path());
    }
    void activate(const QString& text) { watcher->setCurrentSet(store.handleScanInput(text)); }
    QString headlineOf(const QString& name) const
    {
        for (const Write& write : writes) {
            if (write.name == name)
                return write.headline;
        }
        return {};
    }
};

}  // namespace

class TestWatcherCards : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cardActivatesAndIsTagged();
    void cardStep_data();
    void cardStep();
    void discardedCardIsNotTagged_data();
    void discardedCardIsNotTagged();
    void photoAfterTheCardCarriesItsSet();
    void newSetShowsAndSoundsOnce();
};

void TestWatcherCards::cardActivatesAndIsTagged()
{
    Shooting shoot;
    shoot.activate(one);
    shoot.showCard(QStringLiteral("kaart.jpg"), two);
    shoot.arrive(QStringLiteral("kaart.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(shoot.headlineOf(QStringLiteral("kaart.jpg")), QStringLiteral("Set 2 — Zuid"));
    QCOMPARE(shoot.watcher->setCount(), 1);
    QCOMPARE(shoot.watcher->currentSet()->brand, QStringLiteral("Zuid"));
    QCOMPARE(shoot.store.activeSet()->brand, QStringLiteral("Zuid"));
    QVERIFY(shoot.logLines().contains(QStringLiteral("📷 Set herkend uit foto: Set 2 — Zuid")));
}

void TestWatcherCards::cardStep_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("withShoot");
    QTest::newRow("of the set that is current") << one + QStringLiteral("\nMODEL:Anna") << true << true;
    QTest::newRow("web address") << QStringLiteral("https://example.org/SET") << true << true;
    QTest::newRow("recognition off") << two << false << true;
    QTest::newRow("no active shoot") << two << true << false;
}

/// In all of these the photo is an ordinary one of the current set.
void TestWatcherCards::cardStep()
{
    QFETCH(QString, text);
    QFETCH(bool, enabled);
    QFETCH(bool, withShoot);
    Shooting shoot;
    shoot.activate(one);
    if (!withShoot)
        shoot.store.setActiveShootId(std::nullopt);
    shoot.watcher->setQrDetectionEnabled(enabled);
    shoot.watcher->setDeleteQRCardAfterScan(true);
    shoot.showCard(QStringLiteral("a.jpg"), text);
    shoot.arrive(QStringLiteral("a.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(shoot.headlineOf(QStringLiteral("a.jpg")), QStringLiteral("Set 1 — Noord"));
    QCOMPARE(shoot.watcher->setCount(), 0);
    QCOMPARE(shoot.store.shoots().constFirst().sets.size(), 1);
    QVERIFY(shoot.trashed.isEmpty());
}

void TestWatcherCards::discardedCardIsNotTagged_data()
{
    QTest::addColumn<bool>("works");
    QTest::addColumn<QString>("line");
    QTest::newRow("moved") << true << "🗑️ QR-kaart naar prullenbak: kaart.jpg";
    QTest::newRow("not moved") << false << "⚠️ Kon QR-kaart niet verwijderen: kaart.jpg";
}

void TestWatcherCards::discardedCardIsNotTagged()
{
    QFETCH(bool, works);
    QFETCH(QString, line);
    Shooting shoot;
    shoot.trashWorks = works;
    shoot.watcher->setDeleteQRCardAfterScan(true);
    shoot.showCard(QStringLiteral("kaart.jpg"), two);
    shoot.arrive(QStringLiteral("kaart.jpg"));
    QTRY_VERIFY(shoot.logLines().contains(line));
    QCOMPARE(shoot.watcher->currentSet()->setNumber, QStringLiteral("2"));
    QVERIFY(shoot.writes.isEmpty());

    shoot.arrive(QStringLiteral("kaart.jpg"), "an ordinary photo under the name of the card");
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
}

void TestWatcherCards::photoAfterTheCardCarriesItsSet()
{
    Shooting shoot;
    shoot.activate(one);
    const QString card = QStringLiteral("kaart.jpg");
    shoot.showCard(card, two);
    shoot.holdReading(card);
    shoot.arrive(QStringLiteral("before.jpg"));
    shoot.arrive(card);
    for (int i = 0; i < 6; ++i)
        shoot.arrive(QStringLiteral("after%1.jpg").arg(i));
    QTRY_COMPARE(shoot.writtenNames(), QStringList{QStringLiteral("before.jpg")});
    QTest::qWait(50);
    QCOMPARE(shoot.writes.size(), 1);
    shoot.allowReading(card);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 8);
    QCOMPARE(shoot.headlineOf(QStringLiteral("before.jpg")), QStringLiteral("Set 1 — Noord"));
    for (int i = 0; i < 6; ++i)
        QCOMPARE(shoot.headlineOf(QStringLiteral("after%1.jpg").arg(i)), QStringLiteral("Set 2 — Zuid"));
}

void TestWatcherCards::newSetShowsAndSoundsOnce()
{
    Shooting shoot;
    shoot.activate(one);
    QCOMPARE(shoot.watcher->justActivatedHeadline(), QStringLiteral("Set 1 — Noord"));
    QCOMPARE(shoot.sounds, 1);
    shoot.activate(one);
    QCOMPARE(shoot.sounds, 1);
    shoot.activate(two);
    QCOMPARE(shoot.sounds, 2);
    QCOMPARE(shoot.watcher->justActivatedHeadline(), QStringLiteral("Set 2 — Zuid"));
    QTRY_VERIFY(!shoot.watcher->justActivatedHeadline());
    shoot.watcher->setCurrentSet(std::nullopt);
    QCOMPARE(shoot.sounds, 2);
    QVERIFY(!shoot.watcher->justActivatedHeadline());
}

MORVAK_TEST(TestWatcherCards);
#include "test_watcher_cards.moc"
