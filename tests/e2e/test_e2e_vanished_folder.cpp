#include "MorvakRun.h"
#include "sampleshoot/SampleShoot.h"
#include "support/SmallDisk.h"
#include "support/TestMain.h"

#include <QDir>

#include <csignal>

using namespace morvak;
using morvak::test::MorvakRun;
using morvak::test::SmallDisk;
using namespace Qt::StringLiterals;

namespace {

/// How often the program said it tagged this photo.
qsizetype tagged(MorvakRun& run, const QString& name)
{
    return run.count(u"✅ Getagd: "_s + name);
}

}  // namespace

class TestE2eVanishedFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void movedAwayAndBack();
    void unmountedAndMountedAgain();
    void quitsWhileTheFolderIsMissing();
};

void TestE2eVanishedFolder::movedAwayAndBack()
{
    MorvakRun run;
    run.start();
    run.drop(u"setless.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"Geen actieve set — setless.jpg"_s), 1, 20'000);
    run.scan(samples::sampleSets().constFirst());
    run.drop(u"first.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(tagged(run, u"first.jpg"_s), 1, 20'000);

    const QString elsewhere = run.folder() + u"-elsewhere"_s;
    QVERIFY(QDir().rename(run.folder(), elsewhere));
    QTRY_COMPARE(run.count(u"⚠️ Map verdwenen: "_s), 1);
    QFile meanwhile(elsewhere + u"/meanwhile.jpg"_s);
    QVERIFY(meanwhile.open(QIODevice::WriteOnly));
    meanwhile.write(test::smallPhoto());
    meanwhile.close();
    QVERIFY(QDir().rename(elsewhere, run.folder()));

    QTRY_COMPARE_WITH_TIMEOUT(tagged(run, u"meanwhile.jpg"_s), 1, 20'000);
    run.drop(u"last.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(tagged(run, u"last.jpg"_s), 1, 20'000);
    QCOMPARE(tagged(run, u"first.jpg"_s), 1);
    const QHash<QString, QJsonObject> tags = run.readBack();
    QVERIFY(tags.value(u"meanwhile.jpg"_s).contains(u"XMP:Headline"_s));
    QVERIFY(!tags.value(u"setless.jpg"_s).contains(u"XMP:Headline"_s));
}

void TestE2eVanishedFolder::unmountedAndMountedAgain()
{
    MorvakRun run;
    SmallDisk disk(run.folder(), "16m");
    if (!disk.isMounted())
        QSKIP("only who may mount can test this");
    run.start();
    run.scan(samples::sampleSets().constFirst());
    run.drop(u"first.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(tagged(run, u"first.jpg"_s), 1, 20'000);
    disk.unmount();
    QTRY_COMPARE(run.count(u"⚠️ Map verdwenen: "_s), 1);
    run.drop(u"beneath.jpg"_s, test::smallPhoto());  // into the empty mount point
    QVERIFY(disk.mount());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"Watching: "_s), 2, 20'000);
    run.drop(u"last.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(tagged(run, u"last.jpg"_s), 1, 20'000);
    QCOMPARE(run.count(u"beneath.jpg"_s), 0);
}

void TestE2eVanishedFolder::quitsWhileTheFolderIsMissing()
{
    for (const int signal : {SIGTERM, SIGHUP}) {
        MorvakRun run;
        run.start();
        QVERIFY(QDir(run.folder()).removeRecursively());
        QTRY_COMPARE(run.count(u"⚠️ Map verdwenen: "_s), 1);
        QVERIFY(run.quit(signal) >= 0);
        QVERIFY(run.exifTools().isEmpty());
    }
}

MORVAK_TEST(TestE2eVanishedFolder);
#include "test_e2e_vanished_folder.moc"
