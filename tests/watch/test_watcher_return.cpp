#include "support/TestMain.h"
#include "support/WatcherFixture.h"

#include <QFile>
#include <QSignalSpy>

using namespace morvak;
using morvak::test::WatcherFixture;
using Kind = FolderEvent::Kind;

namespace {

const FolderPlace shootFolder{1, 7, "/drive/shoot", "/drive"};
const FolderPlace emptyMountPoint{9, 5, "/drive/shoot", "/"};
const FolderPlace madeAnew{1, 8, "/drive/shoot", "/drive"};

void start(WatcherFixture& fixture)
{
    fixture.watcher->setCurrentSet(SetData());
    fixture.watcher->startWatching(fixture.folder.path());
}

QString lastLine(const WatcherFixture& fixture)
{
    return fixture.watcher->log().value(0).message;
}

/// With one event, so that none comes when the photo's run has ended.
void appear(WatcherFixture& fixture, const QString& name)
{
    fixture.put(name);
    fixture.tell(Kind::MovedHere, name);
}

}  // namespace

class TestWatcherReturn : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatNobodyKnowsIsTagged_data();
    void onlyWhatNobodyKnowsIsTagged();
    void stateAndLogTellOfTheAbsence();
    void whatAnotherFolderBringsIsNotNew();
    void emptyMountPointIsNotTheFolder();
    void pathThatLeadsElsewhereIsNoticed();
    void folderMissingAtTheStart();
    void whatFirstAppearsStaysPresent();
    void tagIsRememberedWhenTheFolderVanishesRightAfterIt();
    void waitingEndsWithStopping();
    void waitingOutlivesTheShootsChoice();
};

void TestWatcherReturn::onlyWhatNobodyKnowsIsTagged_data()
{
    QTest::addColumn<bool>("vanishes");
    QTest::addColumn<FolderPlace>("afterwards");
    QTest::newRow("events were lost") << false << shootFolder;
    QTest::newRow("the folder was moved away and back") << true << shootFolder;
    QTest::newRow("the folder was removed and made anew") << true << madeAnew;
}

void TestWatcherReturn::onlyWhatNobodyKnowsIsTagged()
{
    QFETCH(bool, vanishes);
    QFETCH(FolderPlace, afterwards);
    WatcherFixture fixture;
    fixture.put(QStringLiteral("present.jpg"));
    fixture.watcher->startWatching(fixture.folder.path());
    appear(fixture, QStringLiteral("setless.jpg"));
    QTRY_VERIFY(
        fixture.logLines().contains(QStringLiteral("⚠️ Geen actieve set — setless.jpg overgeslagen")));
    fixture.watcher->setCurrentSet(SetData());
    fixture.setHeld(QStringLiteral("held.jpg"), true);
    appear(fixture, QStringLiteral("held.jpg"));
    QTRY_COMPARE(fixture.logLines().filter(QStringLiteral("gelocked")).size(), 1);
    fixture.setHeld(QStringLiteral("held.jpg"), false);
    fixture.answersByItself = false;
    appear(fixture, QStringLiteral("failing.jpg"));
    QTRY_COMPARE(fixture.writes.size(), 1);
    fixture.answerWrite(false);
    fixture.answersByItself = true;
    appear(fixture, QStringLiteral("tagged.jpg"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);

    if (vanishes)
        fixture.vanish();
    fixture.put(QStringLiteral("meanwhile.jpg"));
    fixture.place = afterwards;
    if (!vanishes)
        fixture.tell(Kind::Overflow);
    QTRY_COMPARE(fixture.watcher->taggedCount(), 2);
    const QStringList expected = {QStringLiteral("failing.jpg"), QStringLiteral("tagged.jpg"),
                                  QStringLiteral("meanwhile.jpg")};
    QCOMPARE(fixture.writtenNames(), expected);
}

void TestWatcherReturn::stateAndLogTellOfTheAbsence()
{
    WatcherFixture fixture;
    start(fixture);
    QSignalSpy watching(&*fixture.watcher, &FolderWatcher::isWatchingChanged);
    QSignalSpy missing(&*fixture.watcher, &FolderWatcher::folderMissingChanged);
    fixture.vanish();
    QVERIFY(!fixture.watcher->isWatching());
    QVERIFY(fixture.watcher->folderMissing());
    QCOMPARE(fixture.watcher->watchPath(), fixture.folder.path());
    QTRY_COMPARE(
        lastLine(fixture),
        QStringLiteral("⚠️ Map verdwenen: %1 — Morvak gaat vanzelf verder zodra de map terug is")
            .arg(fixture.folder.path()));
    QCOMPARE(fixture.watcher->log().constFirst().type, LogType::warning);
    QTRY_VERIFY(fixture.looks > 5);
    fixture.place = shootFolder;
    QTRY_VERIFY(fixture.watcher->isWatching());
    QVERIFY(!fixture.watcher->folderMissing());
    QCOMPARE(watching.size(), 2);
    QCOMPARE(missing.size(), 2);
    QTRY_COMPARE(lastLine(fixture), QStringLiteral("Watching: ") + fixture.folder.path());
}

void TestWatcherReturn::whatAnotherFolderBringsIsNotNew()
{
    WatcherFixture fixture;
    start(fixture);
    fixture.vanish();
    fixture.put(QStringLiteral("ancient.jpg"));
    fixture.put(QStringLiteral("new.jpg"));
    fixture.place = madeAnew;
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    fixture.tell(Kind::Overflow);
    fixture.arrive(QStringLiteral("last.jpg"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 2);
    const QStringList expected = {QStringLiteral("new.jpg"), QStringLiteral("last.jpg")};
    QCOMPARE(fixture.writtenNames(), expected);
}

void TestWatcherReturn::emptyMountPointIsNotTheFolder()
{
    WatcherFixture fixture;
    start(fixture);
    fixture.place = emptyMountPoint;
    fixture.tell(Kind::FolderGone);
    const int before = fixture.looks;
    QTRY_VERIFY(fixture.looks > before + 5);
    QVERIFY(fixture.watcher->folderMissing());
    fixture.place = FolderPlace{2, 7, "/drive/shoot", "/drive"};  // plugged in again
    QTRY_VERIFY(fixture.watcher->isWatching());
}

void TestWatcherReturn::pathThatLeadsElsewhereIsNoticed()
{
    WatcherFixture fixture;
    fixture.place = emptyMountPoint;
    start(fixture);
    fixture.tellPlace();
    QCOMPARE(fixture.foldersOpened, 1);
    fixture.place = shootFolder;  // the drive is mounted at last
    fixture.tellPlace();
    QVERIFY(!fixture.watcher->isWatching());
    QTRY_VERIFY(fixture.watcher->isWatching());
    QCOMPARE(fixture.foldersOpened, 2);
}

void TestWatcherReturn::folderMissingAtTheStart()
{
    WatcherFixture fixture;
    fixture.place.reset();
    start(fixture);
    QVERIFY(fixture.watcher->folderMissing());
    QCOMPARE(fixture.foldersOpened, 0);
    fixture.put(QStringLiteral("old.jpg"));
    fixture.place = shootFolder;
    QTRY_VERIFY(fixture.watcher->isWatching());
    fixture.arrive(QStringLiteral("new.jpg"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    QCOMPARE(fixture.writtenNames(), QStringList{QStringLiteral("new.jpg")});
    QVERIFY(fixture.logLines().constFirst().startsWith(QStringLiteral("⚠️ Map niet gevonden: ")));
}

/// It vanishes again before anybody has seen what is in it.
void TestWatcherReturn::whatFirstAppearsStaysPresent()
{
    WatcherFixture fixture;
    fixture.place.reset();
    start(fixture);
    fixture.put(QStringLiteral("old.jpg"));
    connect(&*fixture.watcher, &FolderWatcher::isWatchingChanged, this, [&, first = true]() mutable {
        if (std::exchange(first, false))
            fixture.vanish();
    });
    fixture.place = shootFolder;
    QTRY_COMPARE(fixture.foldersOpened, 1);
    fixture.place = shootFolder;
    QTRY_COMPARE(fixture.foldersOpened, 2);
    fixture.arrive(QStringLiteral("new.jpg"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    QCOMPARE(fixture.writtenNames(), QStringList{QStringLiteral("new.jpg")});
}

void TestWatcherReturn::tagIsRememberedWhenTheFolderVanishesRightAfterIt()
{
    WatcherFixture fixture;
    fixture.answersByItself = false;
    start(fixture);
    fixture.arrive(QStringLiteral("a.jpg"));
    QTRY_COMPARE(fixture.writes.size(), 1);
    QVERIFY(QFile::remove(fixture.path(QStringLiteral("a.jpg"))));
    fixture.vanish();
    fixture.writes.constFirst().completion(true);
    fixture.answersByItself = true;
    fixture.writesAnswered = 1;
    fixture.put(QStringLiteral("a.jpg"));
    fixture.put(QStringLiteral("b.jpg"));
    fixture.place = shootFolder;
    QTRY_COMPARE(fixture.watcher->taggedCount(), 2);
    QCOMPARE(fixture.writtenNames(), QStringList({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")}));
}

void TestWatcherReturn::waitingEndsWithStopping()
{
    WatcherFixture fixture;
    start(fixture);
    fixture.vanish();
    QSignalSpy missing(&*fixture.watcher, &FolderWatcher::folderMissingChanged);
    fixture.watcher->stopWatching();
    QVERIFY(!fixture.watcher->folderMissing());
    QCOMPARE(missing.size(), 1);
    QCOMPARE(fixture.watcher->watchPath(), fixture.folder.path());
    fixture.place = shootFolder;
    fixture.watcher->startWatching(fixture.watcher->watchPath());
    QVERIFY(fixture.watcher->isWatching());
    QCOMPARE(fixture.foldersOpened, 2);
}

/// Applying the shoot's folder anew must not make what arrives meanwhile count as present.
void TestWatcherReturn::waitingOutlivesTheShootsChoice()
{
    WatcherFixture fixture;
    start(fixture);
    fixture.vanish();
    fixture.put(QStringLiteral("meanwhile.jpg"));
    fixture.place = shootFolder;
    Shoot shoot;
    shoot.watchFolderPath = fixture.folder.path();
    fixture.watcher->applyWatchFolder(shoot);
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
}

MORVAK_TEST(TestWatcherReturn);
#include "test_watcher_return.moc"
