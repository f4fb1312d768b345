#include "MorvakRun.h"
#include "sampleshoot/SampleShoot.h"
#include "store/StoreFile.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

namespace {

/// The program by a clock that the test sets; files keep the times of the true one.
class RunByItsClock : public MorvakRun {
public:
    RunByItsClock()
    {
        setClock("+2h");
        setEnvironment(u"LD_PRELOAD"_s, QStringLiteral(MORVAK_FAKETIME));
        setEnvironment(u"ASAN_OPTIONS"_s, u"verify_asan_link_order=0"_s);  // it would be first, too
        setEnvironment(u"FAKETIME_TIMESTAMP_FILE"_s, elsewhere(u"clock"_s));
        setEnvironment(u"FAKETIME_NO_CACHE"_s, u"1"_s);
        setEnvironment(u"FAKETIME_DONT_FAKE_MONOTONIC"_s, u"1"_s);
        setEnvironment(u"NO_FAKE_STAT"_s, u"1"_s);
    }

    void setClock(const char* offset) const { test::writeFile(elsewhere(u"clock"_s), offset); }
};

}  // namespace

class TestE2eClock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clockSetBackDuringTheShoot();
    void clockSetBackWhileTheFolderIsAway();
};

void TestE2eClock::clockSetBackDuringTheShoot()
{
    const QList<SetData> sets = samples::sampleSets();
    RunByItsClock run;
    run.start();
    run.scan(sets.at(0));
    run.drop(u"a.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: a.jpg"_s), 1, 30'000);
    run.setClock("+0");
    run.drop(u"b.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: b.jpg"_s), 1, 30'000);
    run.scan(sets.at(1));
    run.drop(u"c.jpg"_s, test::smallPhoto());
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: c.jpg"_s), 1, 30'000);
    const auto tags = run.readBack();
    const auto headline = [&](const QString& name) {
        const SetData* const set = setOfTags(tags.value(name), sets);
        return set ? set->headline() : QString();
    };
    QCOMPARE(headline(u"b.jpg"_s), sets.at(0).headline());
    QCOMPARE(headline(u"c.jpg"_s), sets.at(1).headline());
    JsonFault fault;
    const auto shoots = decodeShoots(contentOf(run.storeFile()), fault);
    QVERIFY(shoots);
    const QList<SetActivation>& log = shoots->constFirst().activationLog;
    QCOMPARE(log.size(), 2);
    QVERIFY(log.at(1).activatedAt.seconds < log.at(0).activatedAt.seconds - 3600);  // the clock was set
    QVERIFY(run.quit(SIGTERM) >= 0);
}

void TestE2eClock::clockSetBackWhileTheFolderIsAway()
{
    RunByItsClock run;
    run.start();
    run.scan(samples::sampleSets().at(0));
    const QString away = run.elsewhere(u"away"_s);
    QVERIFY(QDir().rename(run.folder(), away));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"⚠️ Map verdwenen: "_s), 1, 20'000);
    run.setClock("+0");
    test::writeFile(away + u"/meanwhile.jpg"_s, test::smallPhoto());
    QVERIFY(QDir().rename(away, run.folder()));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: meanwhile.jpg"_s), 1, 30'000);
}

MORVAK_TEST(TestE2eClock);
#include "test_e2e_clock.moc"
