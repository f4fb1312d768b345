#include "support/TestMain.h"
#include "watch/PhotoRuns.h"

using namespace morvak;
using Stage = PhotoRun::Stage;
using Kind = FolderEvent::Kind;

class TestPhotoRuns : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onePathHasOneRun();
    void setsAreTakenAsScheduled();
    void eventsAreNotedByStage();
};

void TestPhotoRuns::onePathHasOneRun()
{
    PhotoRuns runs;
    const quint64 number = runs.add(QStringLiteral("/a"))->number;
    QVERIFY(!runs.add(QStringLiteral("/a")));
    QVERIFY(runs.contains(QStringLiteral("/a")));
    runs.remove(number);
    QVERIFY(!runs.find(number));
    QVERIFY(runs.add(QStringLiteral("/a"))->number != number);
}

void TestPhotoRuns::setsAreTakenAsScheduled()
{
    PhotoRuns runs;
    PhotoRun* const settling = runs.add(QStringLiteral("/settling"));
    PhotoRun* const card = runs.add(QStringLiteral("/card"));
    PhotoRun* const locked = runs.add(QStringLiteral("/locked"));
    PhotoRun* const photo = runs.add(QStringLiteral("/photo"));
    locked->stage = Stage::Locked;
    card->stage = Stage::Reading;
    photo->stage = Stage::Ready;
    QVERIFY2(!runs.nextToTakeSet(), "the photo waits for the card");
    card->stage = Stage::AwaitingReader;
    QCOMPARE(runs.nextToTakeSet(), photo);

    card->stage = Stage::Ready;
    QCOMPARE(runs.nextToTakeSet(), card);
    card->stage = Stage::Writing;
    QCOMPARE(runs.nextToTakeSet(), photo);

    settling->stage = Stage::Reading;
    QVERIFY2(!runs.nextToTakeSet(), "what was scheduled first and is read now goes first");
    runs.remove(settling->number);
    QCOMPARE(runs.nextToTakeSet(), photo);
}

void TestPhotoRuns::eventsAreNotedByStage()
{
    PhotoRuns runs;
    const QString path = QStringLiteral("/a");
    PhotoRun* const run = runs.add(path);
    runs.noteEvent(path, Kind::Written, false);
    QVERIFY2(!run->closedSinceLocked, "being written is what settling is for");
    run->stage = Stage::Locked;
    runs.noteEvent(path, Kind::Created, false);
    QVERIFY(!run->closedSinceLocked);
    runs.noteEvent(path, Kind::Written, false);
    QVERIFY(run->closedSinceLocked);

    run->stage = Stage::Writing;
    runs.noteEvent(path, Kind::MovedHere, true);
    QVERIFY2(!run->changedAfterTagging, "our own tagging is no change");
    runs.noteEvent(path, Kind::MovedHere, true);
    QVERIFY2(!run->changedAfterTagging, "nor is its repetition");
    runs.noteEvent(path, Kind::MovedHere, false);
    QVERIFY(run->changedAfterTagging);
}

MORVAK_TEST(TestPhotoRuns);
#include "test_photo_runs.moc"
