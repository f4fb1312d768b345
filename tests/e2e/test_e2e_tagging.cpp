#include "MorvakRun.h"
#include "driver/PhotoCheck.h"
#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "sampleshoot/StudioScene.h"
#include "support/TestMain.h"

#include <QImage>

#include <csignal>

using namespace morvak;
using morvak::test::MorvakRun;
using morvak::test::rawStrip;

namespace {

samples::PhotoOptions sceneOf(const SetData& set, int orientation = 1)
{
    samples::PhotoOptions options;
    options.upright = samples::studioScene(samples::outfitOf(set), QSize(1620, 1080), 7);
    options.orientation = orientation;
    return options;
}

QString text(const QJsonObject& tags, const char* tag)
{
    return tags.value(QString::fromUtf8(tag)).toVariant().toString();
}

}  // namespace

class TestE2eTagging : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFormatCarriesTheSet();
    void photographedCardsChangeTheSet();
    void namesAndValuesMadeToAttack();
    void idleProgramEndsInOrder();
};

void TestE2eTagging::everyFormatCarriesTheSet()
{
    const Tagging tagging = samples::sampleTagging(QStringLiteral("Herfst ’26"));
    MorvakRun run;
    run.start();
    run.scan(tagging.set);
    const samples::PhotoOptions options = sceneOf(tagging.set, 6);
    const QHash<QString, QByteArray> photos = {
        {QStringLiteral("a.JPG"), samples::jpegPhoto(options)},
        {QStringLiteral("b.tif"), samples::tiffPhoto(options)},
        {QStringLiteral("c.dng"), samples::dngPhoto(options)},
        {QStringLiteral("d.NEF"), samples::nefPhoto(options)},
        {QStringLiteral("e.arw"), samples::arwPhoto(options)},
        {QStringLiteral("f.cr2"), samples::cr2Photo(options)},
        {QStringLiteral("g.3fr"), samples::tiffPhoto(options)},
    };
    QHash<QString, QByteArray> strips;
    const QImage before = QImage::fromData(photos.value(QStringLiteral("a.JPG")));
    for (auto photo = photos.begin(); photo != photos.end(); ++photo) {
        run.drop(photo.key(), *photo);
        strips.insert(photo.key(), rawStrip(run.path(photo.key())));
    }
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: ")), 6, 60'000);
    QTRY_COMPARE(run.count(QStringLiteral("ℹ️ g.3fr niet getagd")), 1);

    const auto tags = run.readBack();
    for (auto photo = photos.begin(); photo != photos.end(); ++photo) {
        if (photo.key() == QStringLiteral("g.3fr"))
            continue;
        QCOMPARE(driver::tagFaults(tags.value(photo.key()), tagging), QStringList());
        if (photo.key() != QStringLiteral("a.JPG")) {
            const QByteArray strip = strips.value(photo.key());
            QVERIFY(strip.size() > 1000);
            QCOMPARE(rawStrip(run.path(photo.key())), strip);
        }
    }
    const QImage after(run.path(QStringLiteral("a.JPG")));
    QVERIFY(!before.isNull() && after == before);
    QVERIFY(run.leftovers().isEmpty());
}

void TestE2eTagging::photographedCardsChangeTheSet()
{
    const QList<SetData> sets = samples::sampleSets();
    MorvakRun run;
    run.start();
    samples::PhotoOptions card;
    const auto dropCard = [&](const QString& name, int set, auto encode) {
        card.upright = samples::cardPhoto(sets.at(set), QSize(1620, 1080), quint32(set + 1));
        run.drop(name, encode(card));
    };
    const QByteArray photo = samples::nefPhoto(sceneOf(sets.constFirst()));
    run.drop(QStringLiteral("0.nef"), photo);
    dropCard(QStringLiteral("1.nef"), 0, samples::nefPhoto);
    run.drop(QStringLiteral("2.nef"), photo);
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: ")), 2, 60'000);
    dropCard(QStringLiteral("3.jpg"), 1, samples::jpegPhoto);
    run.drop(QStringLiteral("4.nef"), photo);
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: ")), 4, 60'000);
    QCOMPARE(run.count(QStringLiteral("⚠️ Geen actieve set — 0.nef overgeslagen")), 1);
    QCOMPARE(run.count(QStringLiteral("📷 Set herkend uit foto: ")), 2);

    const auto tags = run.readBack();
    QVERIFY(!tags.value(QStringLiteral("0.nef")).contains(QStringLiteral("XMP:Headline")));
    for (const char* name : {"1.nef", "2.nef"})
        QCOMPARE(text(tags.value(QString::fromUtf8(name)), "XMP:Headline"), sets.at(0).headline());
    for (const char* name : {"3.jpg", "4.nef"})
        QCOMPARE(text(tags.value(QString::fromUtf8(name)), "XMP:Headline"), sets.at(1).headline());
}

void TestE2eTagging::namesAndValuesMadeToAttack()
{
    SetData set;
    set.setNumber = QStringLiteral("1; $(touch pwned) `touch pwned`");
    set.brand = QStringLiteral("-if system(\"touch pwned\") @args %d <Model> 'x' \"y\" \\n # 😀");
    set.model = QStringLiteral("${model;system('touch pwned')}");
    MorvakRun run;
    run.start();
    run.scan(set);
    const QByteArray photo = samples::jpegPhoto(sceneOf(set));
    const QStringList names = {QStringLiteral("-Title<${model;system('touch pwned')}.jpg"),
                               QStringLiteral("%d%f.jpg"),
                               QStringLiteral("-o x.jpg"),
                               QStringLiteral("@x.jpg"),
                               QStringLiteral("#x.jpg"),
                               QStringLiteral("$x`id`;.jpg"),
                               QStringLiteral("'\"\\.jpg"),
                               QStringLiteral(" blank .jpg"),
                               QStringLiteral("Łódź 日本 😀.jpg")};
    for (const QString& name : names)
        run.drop(name, photo);
    const QString broken = QStringLiteral("a\n-execute\n.jpg");
    run.drop(broken, photo);
    QTRY_COMPARE_WITH_TIMEOUT(run.count(QStringLiteral("✅ Getagd: ")), names.size(), 60'000);
    QTRY_COMPARE(run.count(QStringLiteral("❌ Tagging mislukt: a -execute .jpg")), 1);
    const auto tags = run.readBack();
    for (const QString& name : names) {
        QCOMPARE(text(tags.value(name), "XMP:Headline"), set.headline());
        QCOMPARE(text(tags.value(name), "XMP:Creator"), set.model);
    }
    QFile untouched(run.path(broken));
    QVERIFY(untouched.open(QIODevice::ReadOnly));
    QCOMPARE(untouched.readAll(), photo);
    QVERIFY(!QFile::exists(run.path(QStringLiteral("pwned"))) && !QFile::exists(QStringLiteral("pwned")));
    QVERIFY(run.leftovers().isEmpty());
}

void TestE2eTagging::idleProgramEndsInOrder()
{
    MorvakRun run;
    run.start();
    QVERIFY(run.quit(SIGINT) >= 0);
    QCOMPARE(run.count(QStringLiteral("✅ ExifTool stopped")), 1);
    QVERIFY(run.exifTools().isEmpty());
}

MORVAK_TEST(TestE2eTagging);
#include "test_e2e_tagging.moc"
