#include "MorvakRun.h"
#include "metadata/ExifToolService.h"
#include "rename/RawRenameService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/PictureData.h"
#include "sampleshoot/SampleShoot.h"
#include "store/StoreFile.h"
#include "support/Files.h"
#include "support/FullDisk.h"
#include "support/SmallDisk.h"
#include "support/TestMain.h"

#include <QDir>

#include <future>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::activationsIn;
using morvak::test::contentOf;
using morvak::test::FullDisk;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;
using morvak::test::SmallDisk;

namespace {

QByteArray raw(qsizetype size)
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(640, 480));
    options.size = size;
    return samples::dngPhoto(options);
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

}  // namespace

class TestE2eFullDisk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void storeIsTheOldOneUntilThereIsRoom();
    void quitSavesWhatWasRefused();
    void quitSavesTheCounts();
    void photosStayAsTheyAreUntilThereIsRoom();
    void renamedCopiesAreWholeOrNotThere();
};

void TestE2eFullDisk::storeIsTheOldOneUntilThereIsRoom()
{
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    run.start();
    run.scan(sets.at(0));
    const QByteArray before = contentOf(run.storeFile());
    {
        const FullDisk disk(100, pid_t(run.processId()));
        run.scan(sets.at(1));
        QTRY_COMPARE(run.count(u"shoots.json is niet bewaard: "_s), 2);  // a diagnostic and the log
        run.drop(u"a.jpg"_s, test::smallPhoto());
        QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: a.jpg → "_s + sets.at(1).headline()), 1, 30'000);
        run.scan(sets.at(0));
        QCOMPARE(contentOf(run.storeFile()), before);
        QCOMPARE(filesIn(QFileInfo(run.storeFile()).path()),
                 QStringList({u"instance.lock"_s, u"shoots.json"_s}));
    }
    // Nobody does anything: the program tries again by itself.
    QTRY_COMPARE_WITH_TIMEOUT(activationsIn(contentOf(run.storeFile())), activationsIn(before) + 2, 30'000);
    QTRY_COMPARE(run.count(u"shoots.json is weer bewaard"_s), 1);
    QCOMPARE(run.count(u"shoots.json is niet bewaard: "_s), 2);
}

void TestE2eFullDisk::quitSavesWhatWasRefused()
{
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    run.start();
    run.scan(sets.at(0));
    const qsizetype before = activationsIn(contentOf(run.storeFile()));
    {
        const FullDisk disk(100, pid_t(run.processId()));
        run.scan(sets.at(1));
        QTRY_VERIFY(run.count(u"shoots.json is niet bewaard: "_s) >= 1);
    }
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(activationsIn(contentOf(run.storeFile())), before + 1);
}

void TestE2eFullDisk::quitSavesTheCounts()
{
    const SetData set = samples::sampleSets().at(0);
    MorvakRun run;
    run.start();
    run.scan(set);
    for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s})
        run.drop(name, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: "_s), 2, 30'000);
    QVERIFY(run.quit(SIGTERM) >= 0);
    JsonFault fault;
    const std::optional<QList<Shoot>> shoots = decodeShoots(contentOf(run.storeFile()), fault);
    QVERIFY(shoots);
    QCOMPARE(shoots->first().sets.first().taggedCount, 2);
}

void TestE2eFullDisk::photosStayAsTheyAreUntilThereIsRoom()
{
    MorvakRun run;
    const SmallDisk disk(run.folder(), "8m");
    if (!disk.isMounted())
        QSKIP("only who may mount can test this");
    const QList<SetData> sets = samples::sampleSets();
    const QByteArray photo = raw(3'000'000);
    run.start();
    run.scan(sets.at(0));
    test::writeFile(run.path(u"ballast"_s), QByteArray(3'000'000, 'x'));
    run.drop(u"a.dng"_s, photo);  // leaves less room than its copy needs
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"❌ Tagging mislukt: a.dng"_s), 1, 30'000);
    QCOMPARE(contentOf(run.path(u"a.dng"_s)), photo);
    QCOMPARE(run.leftovers(), QStringList());

    QVERIFY(QFile::remove(run.path(u"ballast"_s)));
    run.drop(u"a.dng"_s, photo);  // sent once more
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: a.dng"_s), 1, 30'000);
    QVERIFY(setOfTags(run.readBack().value(u"a.dng"_s), sets));
    QCOMPARE(samples::pictureData(contentOf(run.path(u"a.dng"_s))), samples::pictureData(photo));
}

void TestE2eFullDisk::renamedCopiesAreWholeOrNotThere()
{
    const QTemporaryDir from;
    const QTemporaryDir to;
    const SmallDisk disk(to.path(), "5m");
    if (!disk.isMounted())
        QSKIP("only who may mount can test this");
    ExifToolService exifTool;
    for (const char* const name : {"1.dng", "2.dng", "3.dng"}) {
        const QString path = from.filePath(QString::fromUtf8(name));
        test::writeFile(path, raw(2'000'000));
        std::optional<bool> tagged;
        exifTool.writeMetadata(path, {samples::sampleSets().at(0), {}}, [&](bool ok) { tagged = ok; });
        QTRY_VERIFY_WITH_TIMEOUT(tagged.has_value(), 30'000);
        QVERIFY(*tagged);
    }
    const RawRenameService service(
        [&](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
            return exifTool.readSubjectsAndDates(in, extensions, control);
        });
    const auto copies = [&to] {
        QList<qint64> sizes;
        for (const QString& name : filesIn(to.path()))
            sizes.append(QFileInfo(to.filePath(name)).size());
        return sizes;
    };
    const qint64 whole = QFileInfo(from.filePath(u"1.dng"_s)).size();
    const auto run = [&] { return service.run(from.path(), to.path()); };
    const RawRenameSummary summary = std::async(std::launch::async, run).get();
    QCOMPARE(summary.results.size(), 3);
    QCOMPARE(summary.renamedCount(), 2);
    const auto* const problem =
        std::get_if<RawRenameResult::SkippedCopyFailed>(&summary.results.at(2).outcome);
    QVERIFY(problem && problem->text == u"geen ruimte meer op de schijf van de doelmap");
    QCOMPARE(copies(), QList<qint64>({whole, whole}));
    QCOMPARE(filesIn(from.path()).size(), 3);
}

MORVAK_TEST(TestE2eFullDisk);
#include "test_e2e_full_disk.moc"
