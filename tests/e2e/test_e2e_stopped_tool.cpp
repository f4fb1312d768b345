#include "MorvakRun.h"
#include "sampleshoot/SampleShoot.h"
#include "support/TestMain.h"

#include <csignal>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

/// The tools are stopped, as a debugger or a dead network share does it.
class TestE2eStoppedTool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stoppedToolIsReplaced();
    void quitsWithAStoppedTool();
};

/// Both tools are stopped for longer than anybody waits for them. The photo keeps the set of its moment.
void TestE2eStoppedTool::stoppedToolIsReplaced()
{
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    run.start();
    run.scan(sets.at(0));
    run.drop(u"warm.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: warm.jpg"_s), 1, 30'000);
    const QList<qint64> stopped = run.exifTools();
    run.signalTools(SIGSTOP);
    run.drop(u"a.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"🏷️ Tagging a.jpg"_s), 1, 60'000);
    run.scan(sets.at(1));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: a.jpg"_s), 1, 60'000);
    QCOMPARE(run.count(u"⏱️ ExifTool timeout waiting for {ready"_s), 1);
    for (const qint64 tool : run.exifTools())
        QVERIFY(!stopped.contains(tool));
    const SetData* const set = setOfTags(run.readBack().value(u"a.jpg"_s), sets);
    QVERIFY(set && set->id == sets.at(0).id);
    QCOMPARE(run.leftovers(), QStringList());
}

void TestE2eStoppedTool::quitsWithAStoppedTool()
{
    MorvakRun run;
    run.start();
    run.scan(samples::sampleSets().at(0));
    run.drop(u"warm.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: warm.jpg"_s), 1, 30'000);
    run.signalTools(SIGSTOP);
    for (const char* const name : {"a.jpg", "b.jpg", "c.jpg"})
        run.drop(QString::fromUtf8(name), test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"📁 Bestand stabiel: "_s), 4, 20'000);
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(run.exifTools(), QList<qint64>());
    QCOMPARE(contentOf(run.path(u"b.jpg"_s)), test::smallPhoto());
    QCOMPARE(run.leftovers(), QStringList());
}

MORVAK_TEST(TestE2eStoppedTool);
#include "test_e2e_stopped_tool.moc"
