#include "qr/QRPhotoDetector.h"
#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/SampleShoot.h"
#include "sampleshoot/StudioScene.h"
#include "support/TestMain.h"

using namespace morvak;

class TestCardPhotos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cardReadsAsItsSet_data();
    void cardReadsAsItsSet();
    void sceneWithoutCardReadsAsNothing();
    void setThatFitsNoCodeHasNoCard();
};

void TestCardPhotos::cardReadsAsItsSet_data()
{
    QTest::addColumn<qsizetype>("set");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed) {
        for (qsizetype set = 0; set < samples::sampleSets().size(); ++set) {
            QTest::addRow("wide, set %d, seed %u", static_cast<int>(set), seed)
                << set << QSize(2400, 1600) << seed;
            QTest::addRow("preview, set %d, seed %u", static_cast<int>(set), seed)
                << set << QSize(1620, 1080) << seed;
            QTest::addRow("upright, set %d, seed %u", static_cast<int>(set), seed)
                << set << QSize(1600, 2400) << seed;
        }
    }
    QTest::newRow("small") << qsizetype{0} << QSize(1080, 720) << quint32{7};
}

void TestCardPhotos::cardReadsAsItsSet()
{
    QFETCH(qsizetype, set);
    QFETCH(QSize, size);
    QFETCH(quint32, seed);
    const SetData data = samples::sampleSets().at(set);
    const QImage photo = samples::cardPhoto(data, size, seed);
    QCOMPARE(photo.size(), size);
    QCOMPARE(QRPhotoDetector::detectQRText(photo), data.toQRText());
}

void TestCardPhotos::sceneWithoutCardReadsAsNothing()
{
    for (quint32 seed = 1; seed <= 3; ++seed) {
        const samples::Outfit outfit = samples::outfitOf(samples::sampleSets().constFirst());
        QCOMPARE(QRPhotoDetector::detectQRText(samples::studioScene(outfit, {1620, 1080}, seed)),
                 std::nullopt);
    }
}

void TestCardPhotos::setThatFitsNoCodeHasNoCard()
{
    SetData endless;
    endless.brand = QString(3000, u'x');
    QVERIFY(samples::cardPhoto(endless, {800, 600}, 1).isNull());
}

MORVAK_TEST(TestCardPhotos);

#include "test_card_photos.moc"
