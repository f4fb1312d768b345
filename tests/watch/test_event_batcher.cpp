#include "support/TestMain.h"
#include "watch/EventBatcher.h"

using namespace morvak;
using namespace std::chrono_literals;
using Kind = FolderEvent::Kind;

class TestEventBatcher : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstIsHandedOnAtOnceTheRestInOneBatch();
    void namesDoNotHoldEachOtherUp();
    void ownRenameIsToldFromOthers_data();
    void ownRenameIsToldFromOthers();

private:
    const EventBatcher::Time start{};
};

void TestEventBatcher::firstIsHandedOnAtOnceTheRestInOneBatch()
{
    EventBatcher batcher(500ms);
    QVERIFY(batcher.accept(QStringLiteral("a"), start));
    QVERIFY(!batcher.nextDue());
    for (int i = 1; i <= 9; ++i)
        QVERIFY(!batcher.accept(QStringLiteral("a"), start + i * 50ms));
    QCOMPARE(*batcher.nextDue(), start + 500ms);
    QVERIFY(batcher.takeDue(start + 499ms).isEmpty());
    QCOMPARE(batcher.takeDue(start + 500ms), QStringList{QStringLiteral("a")});
    QVERIFY(!batcher.nextDue());
    QVERIFY(!batcher.accept(QStringLiteral("a"), start + 900ms));
    QCOMPARE(batcher.takeDue(start + 1000ms).size(), 1);
    QVERIFY(batcher.accept(QStringLiteral("a"), start + 1500ms));
}

void TestEventBatcher::namesDoNotHoldEachOtherUp()
{
    EventBatcher batcher(500ms);
    QVERIFY(batcher.accept(QStringLiteral("z"), start));
    QVERIFY(batcher.accept(QStringLiteral("a"), start + 10ms));
    QVERIFY(!batcher.accept(QStringLiteral("a"), start + 20ms));
    QVERIFY(!batcher.accept(QStringLiteral("z"), start + 30ms));
    const QStringList inOrderOfTheirFirst = {QStringLiteral("z"), QStringLiteral("a")};
    QCOMPARE(batcher.takeDue(start + 600ms), inOrderOfTheirFirst);
}

void TestEventBatcher::ownRenameIsToldFromOthers_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<quint32>("fromId");
    QTest::addColumn<QString>("to");
    QTest::addColumn<quint32>("toId");
    QTest::addColumn<bool>("own");
    const QString photo = QStringLiteral("a.NEF");
    QTest::newRow("the tool's result") << QStringLiteral("a.NEF_exiftool_tmp") << 7U << photo << 7U << true;
    QTest::newRow("another renaming") << QStringLiteral("a.NEF_exiftool_tmp") << 7U << photo << 8U << false;
    QTest::newRow("a temporary file of the tether")
        << QStringLiteral("a.NEF.part") << 7U << photo << 7U << false;
    QTest::newRow("another photo's result")
        << QStringLiteral("b.NEF_exiftool_tmp") << 7U << photo << 7U << false;
}

void TestEventBatcher::ownRenameIsToldFromOthers()
{
    QFETCH(QString, from);
    QFETCH(quint32, fromId);
    QFETCH(QString, to);
    QFETCH(quint32, toId);
    OwnRenames renames;
    QVERIFY(!renames.isOwn({Kind::Created, from, 0}));
    QVERIFY(!renames.isOwn({Kind::MovedAway, from, fromId}));
    QVERIFY(!renames.isOwn({Kind::Written, to, 0}));
    QTEST(renames.isOwn({Kind::MovedHere, to, toId}), "own");
    QVERIFY(!renames.isOwn({Kind::MovedHere, to, toId}));
}

MORVAK_TEST(TestEventBatcher);
#include "test_event_batcher.moc"
