#include "FaultRounds.h"
#include "MorvakRun.h"
#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/TestMain.h"

#include <QDir>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;

namespace {

/// What the program holds of the machine, and its tools with it.
struct Holdings {
    qint64 memory = 0;  // kilobytes of its own, without what files hold as well
    qint64 toolMemory = 0;
    qsizetype descriptors = 0;
    qsizetype threads = 0;
    qsizetype tools = 0;
};

qint64 memoryOf(qint64 process)
{
    const QByteArray text = contentOf(u"/proc/%1/status"_s.arg(process));
    const qsizetype at = text.indexOf("\nRssAnon:");
    return at < 0 ? -1 : text.sliced(at + 9).simplified().split(' ').constFirst().toLongLong();
}

qsizetype entriesOf(qint64 process, const QString& folder)
{
    return QDir(u"/proc/%1/%2"_s.arg(QString::number(process), folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

Holdings holdingsOf(const MorvakRun& run)
{
    Holdings now;
    now.memory = memoryOf(run.processId());
    now.descriptors = entriesOf(run.processId(), u"fd"_s);
    now.threads = entriesOf(run.processId(), u"task"_s);
    for (const qint64 tool : run.exifTools()) {
        now.toolMemory += memoryOf(tool);
        ++now.tools;
    }
    return now;
}

}  // namespace

class TestE2eLongShoot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingGrows();
};

/// Four hours of a shoot, a photo every five seconds and a new set every three minutes, as fast as it goes;
/// in the short run twelve minutes. The photos of earlier sets are taken away, as they would fill the
/// disk.
void TestE2eLongShoot::nothingGrows()
{
    constexpr int photosOfASet = 36;
    const int warmUp = test::isLongRun() ? 10 : 2;  // sets after which nothing grows any more
    const int shots = test::isLongRun() ? 80 : 4;
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    const QByteArray photo = samples::nefPhoto(options);
    const QList<SetData> sets = samples::sampleSets();
    QByteArray cards[2];
    for (int i = 0; i < 2; ++i) {
        options.upright = samples::cardPhoto(sets.at(i), QSize(1620, 1080), 1);
        cards[i] = samples::jpegPhoto(options);
    }
    MorvakRun run;
    run.start();
    Holdings before;
    qsizetype expected = 0;
    for (int set = 0; set < shots; ++set) {
        if (set == warmUp)
            before = holdingsOf(run);
        run.drop(u"%1-card.jpg"_s.arg(set), cards[set % 2]);
        for (int i = 1; i < photosOfASet; ++i)
            run.drop(u"%1-%2.NEF"_s.arg(set).arg(i), photo);
        expected += photosOfASet;
        QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: "_s), expected, 120'000);
        QCOMPARE(run.lines().filter(u"✅ Getagd: "_s).filter(sets.at(set % 2).headline()).size(),
                 (set / 2 + 1) * photosOfASet);
        for (const QString& name : QDir(run.folder()).entryList(QDir::Files))
            QVERIFY(QFile::remove(run.path(name)));
    }
    const Holdings after = holdingsOf(run);
    qInfo(
        "%d photos: memory %lld -> %lld kB, tools %lld -> %lld kB, descriptors %lld -> %lld, threads %lld -> "
        "%lld",
        int(expected), before.memory, after.memory, before.toolMemory, after.toolMemory,
        qlonglong(before.descriptors), qlonglong(after.descriptors), qlonglong(before.threads),
        qlonglong(after.threads));
    // What is remembered of a photo, and the pages that an allocator gives back late.
    const qint64 forPhotos = expected * 2;
    QVERIFY(before.memory > 0 && after.memory < before.memory + 16'000 + forPhotos);
    QVERIFY(after.toolMemory < before.toolMemory + 8'000);
    QVERIFY(after.descriptors <= before.descriptors + 2);
    QVERIFY(after.threads <= before.threads + 2);
    QCOMPARE(after.tools, 2);
}

MORVAK_TEST(TestE2eLongShoot);
#include "test_e2e_long_shoot.moc"
