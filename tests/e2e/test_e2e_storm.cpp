#include "FaultRounds.h"
#include "MorvakRun.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QSet>

#include <csignal>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

namespace {

constexpr int eventsOfOneFile = 2;  // made, and written

}  // namespace

class TestE2eStorm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void photosOfAnOverflowAreTaggedOnce();
};

/// The program hears of nothing while more happens in its folder than the kernel's queue holds; then a
/// thousand photos (forty in the short run) lie there at once. Others were under way.
void TestE2eStorm::photosOfAnOverflowAreTaggedOnce()
{
    const int photos = test::isLongRun() ? 1000 : 40;
    const int underWay = 10;
    const QList<SetData> sets = samples::sampleSets();
    const QByteArray photo = samples::jpegPhoto(samples::plainPhoto(QSize(320, 240)));
    const int longestQueue = contentOf(u"/proc/sys/fs/inotify/max_queued_events"_s).trimmed().toInt();
    MorvakRun run;
    run.start();
    run.scan(sets.at(0));
    for (int i = 0; i < underWay; ++i)
        run.drop(u"early%1.jpg"_s.arg(i), photo);
    QTRY_VERIFY_WITH_TIMEOUT(run.count(u"✅ Getagd: early"_s) >= 1, 30'000);
    run.signal(SIGSTOP);
    for (int i = 0; i <= longestQueue / eventsOfOneFile; ++i)
        test::writeFile(run.path(u"%1.txt"_s.arg(i)), {});
    for (int i = 0; i < photos; ++i)
        run.drop(u"%1.jpg"_s.arg(i), photo);
    run.signal(SIGCONT);

    const auto tagLines = [&run] { return run.lines().filter(u"✅ Getagd: "_s); };
    QTRY_COMPARE_WITH_TIMEOUT(tagLines().size(), photos + underWay, 250'000);
    QVERIFY(run.count(u"⚠️ Mapgebeurtenissen gemist"_s) >= 1);
    QStringList named = tagLines();
    QCOMPARE(named.removeDuplicates(), 0);
    QCOMPARE(run.count(u"hergebruikt"_s), 0);
    for (int i = 0; i <= longestQueue / eventsOfOneFile; ++i)
        QFile::remove(run.path(u"%1.txt"_s.arg(i)));
    int tagged = 0;
    for (const QJsonObject& tags : run.readBack())
        tagged += setOfTags(tags, sets) != nullptr;
    QCOMPARE(tagged, photos + underWay);
    QCOMPARE(run.leftovers(), QStringList());
}

MORVAK_TEST(TestE2eStorm);
#include "test_e2e_storm.moc"
