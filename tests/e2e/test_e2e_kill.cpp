#include "FaultRounds.h"
#include "MorvakRun.h"
#include "engine/WatcherWiring.h"
#include "metadata/ExifToolService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/PictureData.h"
#include "sampleshoot/SampleShoot.h"
#include "store/ShootManager.h"
#include "support/TestMain.h"
#include "watch/FolderWatcher.h"

#include <QDeadlineTimer>
#include <QDir>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::activationsIn;
using morvak::test::contentOf;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

namespace {

constexpr int photosEach = 4;       // of every format
constexpr int longestLife = 2'500;  // milliseconds from the first photo on

QHash<QString, QByteArray> somePhotos()
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    options.size = 2'000'000;
    QHash<QString, QByteArray> photos;
    const QByteArray dng = samples::dngPhoto(options);
    const QByteArray nef = samples::nefPhoto(options);
    const QByteArray jpeg = samples::jpegPhoto(options);
    for (int i = 0; i < photosEach; ++i) {
        photos.insert(u"a%1.dng"_s.arg(i), dng);
        photos.insert(u"b%1.NEF"_s.arg(i), nef);
        photos.insert(u"c%1.jpg"_s.arg(i), jpeg);
    }
    return photos;
}

/// What is wrong with the photos: a picture that is not the camera's, tags that are not one set's.
QStringList damageOf(const MorvakRun& run, const QHash<QString, QByteArray>& photos, bool allTagged)
{
    QStringList damage;
    const auto tags = run.readBack();
    for (auto photo = photos.begin(); photo != photos.end(); ++photo) {
        const QJsonObject& found = tags.value(photo.key());
        const bool tagged = setOfTags(found, samples::sampleSets());
        if (samples::pictureData(contentOf(run.path(photo.key()))) != samples::pictureData(photo.value()))
            damage.append(photo.key() + u": the picture"_s);
        if (!tagged && (allTagged || contentOf(run.path(photo.key())) != photo.value()))
            damage.append(photo.key() + u": the tags"_s);
        for (const char* complaint : {"ExifTool:Warning", "ExifTool:Error"}) {
            if (found.contains(QLatin1String(complaint)))
                damage.append(photo.key() + u": "_s + found.value(QLatin1String(complaint)).toString());
        }
    }
    return damage;
}

/// The store, and what a save that was cut short between its last two steps has left beside it.
QStringList storeFiles(const MorvakRun& run)
{
    QStringList paths;
    for (const QFileInfo& file : QFileInfo(run.storeFile()).dir().entryInfoList({u"shoots.json*"_s}))
        paths.append(file.filePath());
    return paths;
}

BacklogScanSummary processBacklog(const MorvakRun& run)
{
    ExifToolService exifTool;
    ShootManager store(run.storeFile());
    store.load();
    FolderWatcher watcher(watcherServices(exifTool));
    std::optional<BacklogScanSummary> summary;
    watcher.processExistingFiles(run.folder(), store.activeShoot().value(),
                                 [&](const BacklogScanSummary& s) { summary = s; });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(summary.has_value(), 60'000); }();
    return summary.value_or(BacklogScanSummary());
}

}  // namespace

class TestE2eKill : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anyMomentLosesNothing_data() { test::addRounds(2); }
    void anyMomentLosesNothing();
};

/// The program is killed while it tags and saves; every second time its tools with it, as in a power cut.
/// Then it is started again.
void TestE2eKill::anyMomentLosesNothing()
{
    QFETCH(const quint32, seed);
    QRandomGenerator chance(seed);
    static const QHash<QString, QByteArray> photos = somePhotos();
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    run.start();
    run.scan(sets.at(0));
    for (auto photo = photos.begin(); photo != photos.end(); ++photo)
        run.drop(photo.key(), photo.value());
    qsizetype scans = 1;
    for (const QDeadlineTimer end(chance.bounded(longestLife)); !end.hasExpired(); ++scans) {
        run.type(sets.at(scans % 2));
        QTest::qWait(int(chance.bounded(40)));
    }
    if (seed % 2)
        run.signalTools(SIGKILL);
    run.kill();

    QTRY_COMPARE(run.exifTools(), QList<qint64>());
    QVERIFY(storeFiles(run).contains(run.storeFile()));
    for (const QString& file : storeFiles(run)) {
        const qsizetype activations = activationsIn(contentOf(file));
        QVERIFY2(activations >= 1 && activations <= scans, contentOf(file).left(200));
    }
    QCOMPARE(damageOf(run, photos, false), QStringList());

    run.start();
    run.scan(sets.at(1));
    run.drop(u"next.jpg"_s, photos.value(u"c0.jpg"_s));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: next.jpg"_s), 1, 60'000);
    QCOMPARE(run.leftovers(), QStringList());
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(processBacklog(run).unresolved, 0);
    QCOMPARE(damageOf(run, photos, true), QStringList());
}

MORVAK_TEST(TestE2eKill);
#include "test_e2e_kill.moc"
