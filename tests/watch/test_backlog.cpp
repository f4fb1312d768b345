#include "support/TestMain.h"
#include "support/WatcherFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QThreadPool>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::WatcherFixture;

namespace {

Timestamp at(int hour, int minute)
{
    return *Timestamp::fromIsoDate(
        u"2026-03-14T%1:%2:00Z"_s.arg(hour, 2, 10, QChar(u'0')).arg(minute, 2, 10, QChar(u'0')));
}

SetData numbered(const QString& number)
{
    SetData set;
    set.setNumber = number;
    return set;
}

/// Set A from 10:00, set B from 10:30, a set that was deleted since from 11:00, A again from 11:30.
Shoot herfst()
{
    Shoot shoot;
    shoot.name = u"Herfst"_s;
    shoot.sets = {numbered(u"B"_s), numbered(u"A"_s)};
    const QUuid a = shoot.sets[1].id;
    shoot.activationLog = {
        {shoot.sets[0].id, at(10, 30)}, {a, at(10, 0)}, {QUuid::createUuid(), at(11, 0)}, {a, at(11, 30)}};
    return shoot;
}

/// A watcher that watches nothing, with photos of known times in its folder.
class Backlog : public WatcherFixture {
public:
    void putAt(const QString& name, Timestamp moment, const QByteArray& content = "photo")
    {
        put(name, content);
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QDateTime time = QDateTime::fromString(*moment.toIsoDate(), Qt::ISODate);
        QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    }

    void process(const QString& in = {})
    {
        run = watcher->processExistingFiles(in.isEmpty() ? folder.path() : in, shoot,
                                            [this](const BacklogScanSummary& s) { summaries.append(s); });
    }

    [[nodiscard]] QList<qsizetype> numbers() const
    {
        const BacklogScanSummary& s = summaries.constFirst();
        return {s.totalCandidates, s.tagged, s.unresolved};
    }

    Shoot shoot = herfst();
    std::shared_ptr<BacklogRun> run;
    QList<BacklogScanSummary> summaries;
};

}  // namespace

class TestBacklog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void setOfAMoment_data();
    void setOfAMoment();
    void untaggedPhotosGetTheSetOfTheirTime();
    void onlyPhotosBelowTheFolderAreLookedAt();
    void failuresAreUnresolved();
    void ownWritingIsNoNewPhoto_data();
    void ownWritingIsNoNewPhoto();
    void photosTaggedMeanwhileAreLeftAlone();
    void onePhotoAtATimeAndGivenUpInBetween();
    void givenUpWhileReading();
    void nothingIsCalledOnceTheWatcherIsGone();
};

void TestBacklog::setOfAMoment_data()
{
    QTest::addColumn<double>("moment");
    QTest::addColumn<QString>("number");
    const auto row = [](const char* name, Timestamp moment, const QString& number) {
        QTest::newRow(name) << moment.seconds << number;
    };
    row("before the first activation", at(9, 59), {});
    row("after an activation", at(10, 15), u"A"_s);
    row("at the moment of an activation", at(10, 30), u"B"_s);
    row("just before it", Timestamp{at(10, 30).seconds - 1e-6}, u"A"_s);
    row("the set was deleted", at(11, 15), {});
    row("activated again", at(12, 0), u"A"_s);
}

void TestBacklog::setOfAMoment()
{
    QFETCH(const double, moment);
    const std::optional<SetData> set = SetsByTime(herfst()).activeAt(Timestamp{moment});
    QTEST(set ? set->setNumber : QString(), "number");
}

void TestBacklog::untaggedPhotosGetTheSetOfTheirTime()
{
    Backlog backlog;
    backlog.store.createShoot(u"Winter"_s, {},
                              {});  // the shoot that was asked for counts, not the active one
    backlog.putAt(u"late.NEF"_s, at(10, 45));
    backlog.putAt(u"early.jpg"_s, at(9, 0));
    backlog.putAt(u"done.jpg"_s, at(10, 15), "photo+tags");
    backlog.putAt(u"%1.CR3"_s, at(10, 15));
    QList<BacklogProgress::Phase> phases;
    backlog.process();
    connect(&*backlog.run, &BacklogRun::progressChanged, this,
            [&] { phases.append(backlog.run->progress().phase); });
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QCOMPARE(backlog.numbers(), (QList<qsizetype>{3, 2, 1}));
    QTRY_COMPARE(
        backlog.logLines(),
        (QStringList{u"⚠️ Geen actieve set gevonden voor het tijdstip van early.jpg — overgeslagen"_s,
                     u"✅ Achteraf getagd: %1.CR3 → Set A"_s, u"✅ Achteraf getagd: late.NEF → Set B"_s}));
    QCOMPARE(backlog.writes.constFirst().shootName, u"Herfst"_s);
    QCOMPARE(backlog.watcher->taggedCount(), 2);
    QVERIFY(backlog.watcher->lastTaggedFile().isEmpty());
    QCOMPARE(phases.count(BacklogProgress::Phase::Reading), 4);
    QCOMPARE(backlog.run->progress().done, 3);

    backlog.process();
    QTRY_COMPARE(backlog.summaries.size(), 2);
    QCOMPARE(backlog.summaries[1].totalCandidates, 1);
}

void TestBacklog::onlyPhotosBelowTheFolderAreLookedAt()
{
    Backlog backlog;
    QVERIFY(QDir(backlog.folder.path()).mkpath(u"dag 1/kaart.jpg"_s));
    QVERIFY(QDir(backlog.folder.path()).mkpath(u".Trash-1000"_s));
    backlog.putAt(u"dag 1/kaart.jpg/a.jpg"_s, at(10, 15));
    backlog.putAt(u".Trash-1000/b.jpg"_s, at(10, 15));
    backlog.putAt(u"._c.jpg"_s, at(10, 15));
    backlog.putAt(u"d.xmp"_s, at(10, 15));
    QVERIFY(QFile::link(backlog.path(u"dag 1/kaart.jpg/a.jpg"_s), backlog.path(u"link.jpg"_s)));
    QVERIFY(QFile::link(backlog.folder.path(), backlog.path(u"dag 1/weer"_s)));
    backlog.process();
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QCOMPARE(backlog.writtenNames(), QStringList{u"a.jpg"_s});

    backlog.process(backlog.path(u"nergens"_s));
    QTRY_COMPARE(backlog.summaries.size(), 2);
    QCOMPARE(backlog.summaries[1].totalCandidates, 0);
}

void TestBacklog::failuresAreUnresolved()
{
    Backlog backlog;
    backlog.answersByItself = false;
    backlog.putAt(u"a.3FR"_s, at(10, 1));
    backlog.putAt(u"b.jpg"_s, at(10, 2));
    backlog.process();
    QTRY_COMPARE(backlog.writes.size(), 1);
    backlog.answerWrite(false);
    QTRY_COMPARE(backlog.writes.size(), 2);
    backlog.answerWrite(false);
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QCOMPARE(backlog.numbers(), (QList<qsizetype>{2, 0, 2}));
    QTRY_COMPARE(
        backlog.logLines(),
        (QStringList{u"ℹ️ a.3FR niet getagd — .3FR kan exiftool niet wegschrijven, een beperking van "
                     "exiftool zelf, niet van Morvak"_s,
                     u"❌ Achteraf taggen mislukt: b.jpg"_s}));
}

void TestBacklog::ownWritingIsNoNewPhoto_data()
{
    QTest::addColumn<bool>("throughALink");
    QTest::newRow("the watched folder") << false;
    QTest::newRow("the same folder under another name") << true;
}

/// Its events would have the current set written over the right one.
void TestBacklog::ownWritingIsNoNewPhoto()
{
    QFETCH(const bool, throughALink);
    Backlog backlog;
    const QString link = backlog.data.filePath(u"foto's"_s);
    QVERIFY(QFile::link(backlog.folder.path(), link));
    backlog.putAt(u"a.jpg"_s, at(10, 15));
    backlog.watcher->startWatching(backlog.folder.path());
    backlog.watcher->setCurrentSet(numbered(u"C"_s));
    backlog.process(throughALink ? link : QString());
    QTRY_COMPARE(backlog.summaries.size(), 1);
    backlog.tell(FolderEvent::Kind::MovedHere, u"a.jpg"_s);
    QTest::qWait(60);
    QCOMPARE(backlog.writes.size(), 1);
    QCOMPARE(backlog.writes.constFirst().headline, u"Set A"_s);

    backlog.arrive(u"a.jpg"_s, "another photo under this name");
    QTRY_COMPARE(backlog.writes.size(), 2);
    QCOMPARE(backlog.writes.constLast().headline, u"Set C"_s);
}

void TestBacklog::photosTaggedMeanwhileAreLeftAlone()
{
    Backlog backlog;
    backlog.answersByItself = false;
    backlog.watcher->startWatching(backlog.folder.path());
    backlog.watcher->setCurrentSet(numbered(u"C"_s));
    backlog.putAt(u"a.jpg"_s, at(10, 1));
    backlog.putAt(u"b.jpg"_s, at(10, 2));
    backlog.putAt(u"c.jpg"_s, at(10, 3));
    backlog.process();
    QTRY_COMPARE(backlog.writes.size(), 1);
    backlog.put(u"b.jpg"_s, "photo+tags");                 // tagged by somebody, and done
    backlog.tell(FolderEvent::Kind::Created, u"c.jpg"_s);  // on its way as a new photo
    backlog.answerWrite();
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QCOMPARE(backlog.numbers(), (QList<qsizetype>{1, 1, 0}));
    QTRY_COMPARE(backlog.writtenNames(), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
    QCOMPARE(backlog.writes.constLast().headline, u"Set C"_s);
}

void TestBacklog::onePhotoAtATimeAndGivenUpInBetween()
{
    Backlog backlog;
    backlog.answersByItself = false;
    for (int i = 0; i < 5; ++i)
        backlog.putAt(u"%1.jpg"_s.arg(i), at(10, i));
    backlog.process();
    QTRY_COMPARE(backlog.writes.size(), 1);
    backlog.answerWrite();
    QTRY_COMPARE(backlog.writes.size(), 2);
    QTest::qWait(20);
    QCOMPARE(backlog.writes.size(), 2);
    backlog.run->giveUp();
    QVERIFY(backlog.summaries.isEmpty());
    backlog.answerWrite();
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QCOMPARE(backlog.numbers(), (QList<qsizetype>{5, 2, 0}));
    QCOMPARE(backlog.writes.size(), 2);
}

void TestBacklog::givenUpWhileReading()
{
    Backlog backlog;
    backlog.putAt(u"a.jpg"_s, at(10, 1));
    backlog.putAt(u"b.jpg"_s, at(10, 2));
    backlog.holdReading(u"a.jpg"_s);
    backlog.holdReading(u"b.jpg"_s);
    backlog.process();
    backlog.run->giveUp();
    backlog.allowReading(u"a.jpg"_s);
    backlog.allowReading(u"b.jpg"_s);
    QTRY_COMPARE(backlog.summaries.size(), 1);
    QVERIFY(backlog.summaries[0].totalCandidates <= 1);
    QVERIFY(backlog.writes.isEmpty());
}

void TestBacklog::nothingIsCalledOnceTheWatcherIsGone()
{
    Backlog backlog;
    backlog.putAt(u"a.jpg"_s, at(10, 1));
    backlog.holdReading(u"a.jpg"_s);
    backlog.process();
    backlog.run.reset();
    backlog.watcher.reset();
    backlog.allowReading(u"a.jpg"_s);
    QVERIFY(QThreadPool::globalInstance()->waitForDone(10'000));
    QCoreApplication::processEvents();
    QVERIFY(backlog.summaries.isEmpty());
    QVERIFY(backlog.writes.isEmpty());
}

MORVAK_TEST(TestBacklog);
#include "test_backlog.moc"
