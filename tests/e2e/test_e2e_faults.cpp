#include "FaultRounds.h"
#include "MorvakRun.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/TestMain.h"

#include <csignal>
#include <iterator>

using namespace morvak;
using morvak::test::MorvakRun;
using morvak::test::rawStrip;

namespace {

/// A RAW container of some megabytes, with a small preview.
QByteArray rawPhoto()
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(1620, 1080));
    options.size = 4'000'000;
    return samples::dngPhoto(options);
}

class Burst : public MorvakRun {
public:
    static constexpr int photos = 24;

    Burst()
    {
        start();
        scan(samples::sampleSets().constFirst());
        const QByteArray bytes = rawPhoto();
        for (int i = 0; i < photos; ++i)
            drop(QStringLiteral("%1.dng").arg(i), bytes);
        m_strip = rawStrip(path(QStringLiteral("0.dng")));
    }

    /// Photos whose RAW data is what the camera wrote.
    int intact() const
    {
        int count = 0;
        for (int i = 0; i < photos; ++i)
            count += rawStrip(path(QStringLiteral("%1.dng").arg(i))) == m_strip;
        return count;
    }

    int tagged() const
    {
        int count = 0;
        for (const QJsonObject& tags : readBack())
            count += tags.contains(QStringLiteral("XMP:Headline"));
        return count;
    }

private:
    QByteArray m_strip;
};

}  // namespace

class TestE2eFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mistreatedToolsLoseNothing_data() { test::addRounds(1); }
    void mistreatedToolsLoseNothing();
    void quitUnderLoadIsQuick();
    void pausedCopyIsNotCutOff();
};

/// Tools are killed and stopped for a while at moments of chance. Only a photo that loses its tool twice is
/// given up, and told of.
void TestE2eFaults::mistreatedToolsLoseNothing()
{
    QFETCH(const quint32, seed);
    QRandomGenerator chance(seed);
    constexpr int signalNumbers[] = {SIGKILL, SIGTERM, SIGINT, SIGSEGV, SIGSTOP};
    Burst burst;
    QTRY_VERIFY_WITH_TIMEOUT(burst.count(QStringLiteral("🏷️ Tagging ")) >= 1, 60'000);
    for (int blow = 0; blow < 6; ++blow) {
        burst.signalTools(signalNumbers[chance.bounded(int(std::size(signalNumbers)))]);
        QTest::qWait(int(chance.bounded(300)));
        burst.signalTools(SIGCONT);
    }
    const auto tagged = [&burst] { return burst.count(QStringLiteral("✅ Getagd: ")); };
    const auto givenUp = [&burst] { return burst.count(QStringLiteral("❌ Tagging mislukt: ")); };
    QTRY_COMPARE_WITH_TIMEOUT(tagged() + givenUp(), Burst::photos, 60'000);
    QVERIFY(givenUp() <= 3);  // six blows
    QVERIFY(burst.tagged() >= tagged());
    QCOMPARE(burst.intact(), Burst::photos);
    QVERIFY(burst.leftovers().isEmpty());
}

void TestE2eFaults::quitUnderLoadIsQuick()
{
    Burst burst;
    QTRY_VERIFY_WITH_TIMEOUT(burst.count(QStringLiteral("🏷️ Tagging ")) >= 2, 60'000);
    QVERIFY(burst.quit(SIGTERM) >= 0);
    QVERIFY(burst.exifTools().isEmpty());
    QVERIFY(burst.leftovers().isEmpty());
    QCOMPARE(burst.intact(), Burst::photos);
}

void TestE2eFaults::pausedCopyIsNotCutOff()
{
    MorvakRun run;
    run.start();
    run.scan(samples::sampleSets().constFirst());
    const QByteArray bytes = rawPhoto();
    QFile copy(run.path(QStringLiteral("slow.dng")));
    QVERIFY(copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    copy.write(bytes.first(bytes.size() / 2));
    // Its size has been stable for a while, and it is still open.
    QTRY_COMPARE(run.count(QStringLiteral("📁 Bestand stabiel: slow.dng")), 1);
    run.drop(QStringLiteral("other.dng"), bytes);
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: other.dng")), 1, 30'000);
    QCOMPARE(run.count(QStringLiteral("Tagging slow.dng")), 0);
    copy.write(bytes.sliced(bytes.size() / 2));
    copy.close();
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: slow.dng")), 1, 30'000);
    QCOMPARE(rawStrip(run.path(QStringLiteral("slow.dng"))), rawStrip(run.path(QStringLiteral("other.dng"))));
}

MORVAK_TEST(TestE2eFaults);
#include "test_e2e_faults.moc"
