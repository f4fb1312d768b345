#include "support/TestMain.h"
#include "support/WatcherFixture.h"

#include <QFile>

using namespace morvak;
using morvak::test::WatcherFixture;
using Kind = FolderEvent::Kind;

namespace {

Shoot shootWith(const QString& folder, qint64 tagged)
{
    Shoot shoot;
    shoot.watchFolderPath = folder;
    for (int i = 0; i < 2; ++i) {
        shoot.sets.append(SetData());
        shoot.sets.last().taggedCount = tagged;
    }
    return shoot;
}

}  // namespace

class TestWatcherFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatWasThereCountsAsHandled();
    void whatLandsWhileStartingIsNew();
    void lostEventsAreMadeUpFor();
    void photosUnderWaySurviveARestart();
    void folderThatCannotBeWatched();
    void followsTheShoot();
};

void TestWatcherFolder::whatWasThereCountsAsHandled()
{
    WatcherFixture fixture;
    fixture.store.createShoot({}, {}, {});
    fixture.put(QStringLiteral("old.CR3"), QByteArray(100, 'x'));
    fixture.watcher->startWatching(fixture.folder.path());
    fixture.watcher->setCurrentSet(SetData());
    QCOMPARE(fixture.store.activeShoot()->watchFolderPath, fixture.folder.path());
    QFile touched(fixture.path(QStringLiteral("old.CR3")));
    QVERIFY(touched.open(QIODevice::ReadWrite));
    QVERIFY(touched.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    touched.close();
    fixture.tell(Kind::Written, QStringLiteral("old.CR3"));
    fixture.arrive(QStringLiteral("new.CR3"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    const QStringList expected = {
        QStringLiteral("Watching: ") + fixture.folder.path(), QStringLiteral("Nieuw bestand: old.CR3"),
        QStringLiteral("Nieuw bestand: new.CR3"), QStringLiteral("✅ Getagd: new.CR3 → ")};
    QTRY_COMPARE(fixture.logLines(), expected);
}

void TestWatcherFolder::whatLandsWhileStartingIsNew()
{
    WatcherFixture fixture;
    fixture.put(QStringLiteral("landing.jpg"));
    fixture.put(QStringLiteral("old.jpg"));
    fixture.onDrain = [&] { fixture.tell(Kind::Created, QStringLiteral("landing.jpg")); };
    fixture.watcher->setCurrentSet(SetData());
    fixture.watcher->startWatching(fixture.folder.path());
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    QCOMPARE(fixture.writtenNames(), QStringList{QStringLiteral("landing.jpg")});
}

void TestWatcherFolder::lostEventsAreMadeUpFor()
{
    WatcherFixture fixture;
    fixture.put(QStringLiteral("old.jpg"));
    fixture.watcher->setCurrentSet(SetData());
    fixture.watcher->startWatching(fixture.folder.path());
    fixture.arrive(QStringLiteral("tagged.jpg"));
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
    fixture.put(QStringLiteral("missed.nef"));
    fixture.put(QStringLiteral("missed.txt"));
    fixture.tell(Kind::Overflow);
    QTRY_COMPARE(fixture.watcher->taggedCount(), 2);
    const QStringList expected = {QStringLiteral("tagged.jpg"), QStringLiteral("missed.nef")};
    QCOMPARE(fixture.writtenNames(), expected);
}

void TestWatcherFolder::photosUnderWaySurviveARestart()
{
    WatcherFixture fixture;
    fixture.watcher->setCurrentSet(SetData());
    fixture.watcher->startWatching(fixture.folder.path());
    fixture.arrive(QStringLiteral("a.jpg"));
    fixture.watcher->stopWatching();
    fixture.watcher->startWatching(fixture.folder.path());
    QTRY_COMPARE(fixture.watcher->taggedCount(), 1);
}

void TestWatcherFolder::folderThatCannotBeWatched()
{
    WatcherFixture fixture;
    fixture.watcher->startWatching(QString());
    QCOMPARE(fixture.foldersOpened, 0);
    fixture.folderCanBeOpened = false;
    fixture.watcher->startWatching(fixture.folder.path());
    QVERIFY(!fixture.watcher->isWatching());
    QCOMPARE(fixture.watcher->watchPath(), fixture.folder.path());
    QCoreApplication::processEvents();
    QVERIFY(fixture.logLines().isEmpty());
}

void TestWatcherFolder::followsTheShoot()
{
    WatcherFixture fixture;
    FolderWatcher& watcher = *fixture.watcher;
    const Shoot shoot = shootWith(fixture.folder.path(), 21);
    watcher.applyWatchFolder(shoot);
    QVERIFY(watcher.isWatching());
    QCOMPARE(watcher.taggedCount(), 42);

    watcher.applyWatchFolder(shootWith(fixture.folder.path(), 1));
    QCOMPARE(watcher.taggedCount(), 2);
    QCOMPARE(fixture.foldersOpened, 1);

    watcher.stopWatching();
    QVERIFY(!watcher.isWatching());
    QCOMPARE(watcher.watchPath(), fixture.folder.path());
    watcher.applyWatchFolder(shoot);
    QVERIFY(watcher.isWatching());
    QCOMPARE(fixture.foldersOpened, 2);

    const QTemporaryDir other;
    watcher.applyWatchFolder(shootWith(other.path(), 0));
    QCOMPARE(watcher.watchPath(), other.path());
    QCOMPARE(fixture.foldersOpened, 3);

    for (const std::optional<Shoot>& none :
         {std::optional<Shoot>(), std::optional(shootWith(QString(), 3))}) {
        watcher.applyWatchFolder(none);
        QVERIFY(!watcher.isWatching());
        QVERIFY(watcher.watchPath().isEmpty());
    }
    QCOMPARE(watcher.taggedCount(), 6);
}

MORVAK_TEST(TestWatcherFolder);
#include "test_watcher_folder.moc"
