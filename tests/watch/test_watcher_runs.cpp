#include "support/TestMain.h"
#include "support/WatcherFixture.h"

#include <QFile>
#include <QSignalSpy>

using namespace morvak;
using morvak::test::WatcherFixture;
using Kind = FolderEvent::Kind;

namespace {

constexpr auto setOne = "SET:1\nBRAND:Noord";

/// A shoot whose folder is watched and whose first set is active.
class Shooting : public WatcherFixture {
public:
    Shooting()
    {
        store.createShoot(QStringLiteral("Herfst"), {}, {});
        watcher->startWatching(folder.path());
        watcher->setCurrentSet(store.handleScanInput(QString::fromUtf8(setOne)));
        QCoreApplication::processEvents();
    }

    QStringList linesSince(qsizetype start) const { return logLines().sliced(start); }
};

QString named(const char* before, const char* after = "")
{
    return QString::fromUtf8(before) + QString::fromUtf8(after);
}

}  // namespace

class TestWatcherRuns : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newPhotoIsTaggedOnce();
    void withoutASetNothingIsWritten();
    void sizeDecidesWhetherAKnownNameIsNew();
    void heldPhotoIsSkippedAndLookedAtWhenClosed();
    void photoClosedDuringItsLastLookIsNotForgotten();
    void failedWrite_data();
    void failedWrite();
    void photoReplacedRightAfterTaggingIsTaggedAgain();
    void goneFileEndsSilently();
    void logAndThumbnailsAreBounded();
    void quittingUnderLoadCallsNobody();
};

void TestWatcherRuns::newPhotoIsTaggedOnce()
{
    Shooting shoot;
    shoot.put(QStringLiteral("a.CR3"));
    for (int i = 0; i < 10; ++i)
        shoot.tell(i == 0 ? Kind::Created : Kind::Written, QStringLiteral("a.CR3"));
    shoot.arrive(QStringLiteral("a.xmp"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QTRY_COMPARE(shoot.watcher->recentThumbnails().size(), 1);
    const QStringList expected = {named("Watching: ", qPrintable(shoot.folder.path())),
                                  named("Nieuw bestand: a.CR3"), named("✅ Getagd: a.CR3 → Set 1 — Noord")};
    QTRY_COMPARE(shoot.logLines(), expected);
    QCOMPARE(shoot.watcher->lastTaggedFile(), QStringLiteral("a.CR3"));
    QCOMPARE(shoot.store.activeSet()->taggedCount, 1);
    QCOMPARE(shoot.writes.constFirst().shootName, QStringLiteral("Herfst"));

    // The echo of our own write comes again, late.
    shoot.tell(Kind::MovedHere, QStringLiteral("a.CR3"));
    QTest::qWait(60);
    QCOMPARE(shoot.writes.size(), 1);
    QCOMPARE(shoot.logLines(), expected);
}

void TestWatcherRuns::withoutASetNothingIsWritten()
{
    Shooting shoot;
    shoot.watcher->setCurrentSet(std::nullopt);
    shoot.arrive(QStringLiteral("a.jpg"));
    QTRY_VERIFY(shoot.logLines().contains(named("⚠️ Geen actieve set — a.jpg overgeslagen")));
    QVERIFY(shoot.writes.isEmpty());
    QCOMPARE(shoot.watcher->taggedCount(), 0);
}

void TestWatcherRuns::sizeDecidesWhetherAKnownNameIsNew()
{
    Shooting shoot;
    const QString name = QStringLiteral("IMG_1.JPG");
    shoot.arrive(name, "twelve bytes");
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    shoot.arrive(name, "twelve bytes+tags");
    QTRY_COMPARE(shoot.logLines().filter(QStringLiteral("Nieuw bestand")).size(), 2);
    shoot.arrive(QStringLiteral("last.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 2);
    QCOMPARE(shoot.writtenNames().count(name), 1);

    shoot.arrive(name, "another photo under the same name");
    QTRY_COMPARE(shoot.watcher->taggedCount(), 3);
    QTRY_VERIFY(shoot.logLines().contains(named(
        "⚠️ Bestandsnaam hergebruikt: IMG_1.JPG heeft nieuwe inhoud (was al eerder getagd). Mogelijk "
        "cameranummer gewrapt of kaart vervangen — opnieuw getagd.")));
}

void TestWatcherRuns::heldPhotoIsSkippedAndLookedAtWhenClosed()
{
    Shooting shoot;
    const QString name = QStringLiteral("a.nef");
    shoot.setHeld(name, true);
    shoot.arrive(name);
    shoot.arrive(QStringLiteral("b.nef"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(shoot.writtenNames(), QStringList{QStringLiteral("b.nef")});
    QTRY_VERIFY(shoot.logLines().contains(
        named("⚠️ Bestand gelocked door ander process — a.nef overgeslagen")));
    shoot.setHeld(name, false);
    shoot.tell(Kind::Written, name);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 2);
}

void TestWatcherRuns::photoClosedDuringItsLastLookIsNotForgotten()
{
    Shooting shoot;
    const QString name = QStringLiteral("a.nef");
    shoot.answersByItself = false;
    shoot.arrive(name);
    QTRY_COMPARE(shoot.writes.size(), 1);
    // Somebody opened it again before the write, so that the write was refused, and closed it before the
    // answer.
    shoot.tell(Kind::Written, name);
    shoot.answersByItself = true;
    shoot.answerWrite(false);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(shoot.writes.size(), 2);
}

void TestWatcherRuns::failedWrite_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("line");
    QTest::addColumn<LogType>("type");
    QTest::newRow("photo") << "IMG_%1.CR3"
                           << "❌ Tagging mislukt: IMG_%1.CR3" << LogType::error;
    QTest::newRow("3FR")
        << "IMG_9.3FR"
        << "ℹ️ IMG_9.3FR niet getagd — .3FR kan exiftool niet wegschrijven, een beperking van "
           "exiftool zelf, niet van Morvak"
        << LogType::warning;
}

void TestWatcherRuns::failedWrite()
{
    QFETCH(QString, name);
    Shooting shoot;
    shoot.answersByItself = false;
    shoot.arrive(name);
    QTRY_COMPARE(shoot.writes.size(), 1);
    shoot.answerWrite(false);
    QTRY_COMPARE(shoot.watcher->log().size(), 3);
    QTEST(shoot.watcher->log().constFirst().message, "line");
    QTEST(shoot.watcher->log().constFirst().type, "type");
    QCOMPARE(shoot.watcher->taggedCount(), 0);

    shoot.answersByItself = true;
    shoot.tell(Kind::Written, name);
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
}

void TestWatcherRuns::photoReplacedRightAfterTaggingIsTaggedAgain()
{
    Shooting shoot;
    const QString name = QStringLiteral("a.jpg");
    shoot.answersByItself = false;
    shoot.arrive(name);
    QTRY_COMPARE(shoot.writes.size(), 1);
    // The event of the new photo is still unread when the answer for the old one is taken.
    shoot.onDrain = [&] { shoot.tell(Kind::MovedHere, name); };
    shoot.answerWrite();
    shoot.answersByItself = true;
    QTRY_COMPARE(shoot.watcher->taggedCount(), 2);
    QCOMPARE(shoot.writes.size(), 2);
}

void TestWatcherRuns::goneFileEndsSilently()
{
    Shooting shoot;
    shoot.arrive(QStringLiteral("a.jpg"));
    QVERIFY(QFile::remove(shoot.path(QStringLiteral("a.jpg"))));
    QVERIFY(QFile::link(shoot.path(QStringLiteral("target")), shoot.path(QStringLiteral("link.jpg"))));
    shoot.tell(Kind::Created, QStringLiteral("link.jpg"));
    shoot.arrive(QStringLiteral("b.jpg"));
    QTRY_COMPARE(shoot.watcher->taggedCount(), 1);
    QCOMPARE(shoot.writtenNames(), QStringList{QStringLiteral("b.jpg")});
    QVERIFY(shoot.logLines().filter(QStringLiteral("link.jpg")).isEmpty());
}

void TestWatcherRuns::logAndThumbnailsAreBounded()
{
    Shooting shoot;
    for (int i = 0; i < 7; ++i)
        shoot.watcher->appendThumbnail(QImage(300, 300, QImage::Format_RGB32), QString::number(i));
    QCOMPARE(shoot.watcher->recentThumbnails().size(), 5);
    QCOMPARE(shoot.watcher->recentThumbnails().constFirst().first, QStringLiteral("6"));
    QSignalSpy changes(&*shoot.watcher, &FolderWatcher::logChanged);
    for (int i = 1; i <= 201; ++i)
        shoot.watcher->addLog(QString::number(i), LogType::info);
    QVERIFY2(changes.isEmpty(), "a line is added later");
    QTRY_COMPARE(changes.size(), 201);
    QCOMPARE(shoot.watcher->log().size(), 200);
    QCOMPARE(shoot.logLines().constFirst(), QStringLiteral("2"));
}

void TestWatcherRuns::quittingUnderLoadCallsNobody()
{
    Shooting shoot;
    shoot.answersByItself = false;
    for (int i = 0; i < 20; ++i)
        shoot.arrive(QStringLiteral("%1.nef").arg(i));
    QTRY_VERIFY(shoot.writes.size() > 2);
    shoot.watcher->prepareToQuit();
    const auto tagged = shoot.watcher->taggedCount();
    shoot.answerWrite();
    QCOMPARE(shoot.watcher->taggedCount(), tagged);
    shoot.watcher.reset();
    shoot.answerWrite();
    QCoreApplication::processEvents();
}

MORVAK_TEST(TestWatcherRuns);
#include "test_watcher_runs.moc"
