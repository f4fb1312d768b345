#include "engine/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "store/ShootManager.h"
#include "support/TestMain.h"
#include "watch/FolderWatcher.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace morvak;
using namespace Qt::StringLiterals;

class TestE2eBacklog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void photosOfAMorningGetTheirSets();
};

/// Photos of every format that came in while nothing was watching: some before the first set, one tagged
/// already, one that somebody is still writing. Then new ones come in while the old ones are worked off.
void TestE2eBacklog::photosOfAMorningGetTheirSets()
{
    const QTemporaryDir root;
    const QString folder = root.filePath(u"foto's"_s);
    QVERIFY(QDir().mkpath(folder + u"/kaart 2"_s));
    QList<SetData> sets = samples::sampleSets();
    sets.append(SetData());
    sets[2].setNumber = u"14"_s;
    ShootManager store(root.filePath(u"shoots.json"_s));
    store.createShoot(u"Herfst"_s, {}, {});
    for (const SetData& set : std::as_const(sets))
        store.addSet(*store.activeShootId(), set);
    Shoot shoot = *store.activeShoot();
    const QDateTime ten(QDate(2026, 3, 14), QTime(10, 0), Qt::UTC);
    const double start = Timestamp::fromUnixNanoseconds(ten.toMSecsSinceEpoch() * 1'000'000).seconds;
    shoot.activationLog = {{sets[0].id, {start}}, {sets[1].id, {start + 1800}}};

    const samples::PhotoOptions plain = samples::plainPhoto(QSize(640, 480));
    const auto put = [&](const QString& name, const QByteArray& bytes, int minutes) {
        QFile file(folder + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        QVERIFY(file.flush());
        QVERIFY(file.setFileTime(ten.addSecs(minutes * 60), QFileDevice::FileModificationTime));
    };
    put(u"vroeg.jpg"_s, samples::jpegPhoto(plain), -1);
    put(u"a.NEF"_s, samples::nefPhoto(plain), 1);
    put(u"kaart 2/b.dng"_s, samples::dngPhoto(plain), 20);
    put(u"c.CR2"_s, samples::cr2Photo(plain), 30);
    put(u"d.3fr"_s, samples::tiffPhoto(plain), 31);
    put(u"bezig.jpg"_s, samples::jpegPhoto(plain), 40);
    QFile busy(folder + u"/bezig.jpg"_s);
    QVERIFY(busy.open(QIODevice::ReadWrite));

    ExifToolService exifTool;
    FolderWatcher watcher(watcherServices(exifTool));
    watcher.setShootManager(&store);
    watcher.startWatching(folder);
    watcher.setCurrentSet(sets[2]);
    std::optional<BacklogScanSummary> summary;
    watcher.processExistingFiles(folder, shoot, [&](const BacklogScanSummary& s) { summary = s; });
    put(u"nieuw.jpg"_s, samples::jpegPhoto(plain), 5);
    QTRY_VERIFY_WITH_TIMEOUT(summary.has_value(), 60'000);
    QTRY_COMPARE_WITH_TIMEOUT(watcher.lastTaggedFile(), u"nieuw.jpg"_s, 60'000);

    const auto headline = [&](const QString& name) { return exifTool.readHeadline(folder + u'/' + name); };
    QCOMPARE(headline(u"vroeg.jpg"_s), std::nullopt);
    QCOMPARE(headline(u"a.NEF"_s), sets[0].headline());
    QCOMPARE(headline(u"kaart 2/b.dng"_s), sets[0].headline());
    QCOMPARE(headline(u"c.CR2"_s), sets[1].headline());
    QCOMPARE(headline(u"bezig.jpg"_s), std::nullopt);
    QCOMPARE(headline(u"nieuw.jpg"_s), sets[2].headline());
    // The new photo may have been found among the old ones before it was scheduled; it is nobody's loss.
    QCOMPARE(summary->tagged, 3);
    QCOMPARE(summary->unresolved, 3);
    QCOMPARE(summary->totalCandidates, 6);

    summary.reset();
    busy.close();
    watcher.processExistingFiles(folder, shoot, [&](const BacklogScanSummary& s) { summary = s; });
    QTRY_VERIFY_WITH_TIMEOUT(summary.has_value(), 60'000);
    QCOMPARE(summary->totalCandidates, 3);
    QCOMPARE(summary->tagged, 1);
    QCOMPARE(headline(u"bezig.jpg"_s), sets[1].headline());
}

MORVAK_TEST(TestE2eBacklog);
#include "test_e2e_backlog.moc"
