#include "sampleshoot/Noise.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/PictureData.h"
#include "support/TestMain.h"

using namespace morvak::samples;

namespace {

using Encoder = QByteArray (*)(const PhotoOptions&);

QImage anything()
{
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(0x808080);
    addGrain(image, 20, 1);
    return image;
}

}  // namespace

class TestPictureData : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneBitOfThePictureShows_data();
    void oneBitOfThePictureShows();
    void damagedFileHasNone();
};

void TestPictureData::oneBitOfThePictureShows_data()
{
    QTest::addColumn<Encoder>("encode");
    QTest::newRow("jpeg") << Encoder(jpegPhoto);
    QTest::newRow("tiff") << Encoder(tiffPhoto);
    QTest::newRow("dng") << Encoder(dngPhoto);
    QTest::newRow("nef") << Encoder(nefPhoto);
    QTest::newRow("arw") << Encoder(arwPhoto);
    QTest::newRow("cr2") << Encoder(cr2Photo);
}

void TestPictureData::oneBitOfThePictureShows()
{
    QFETCH(Encoder, encode);
    PhotoOptions options{.upright = anything()};
    const QByteArray photo = encode(options);
    const auto picture = pictureData(photo);
    QVERIFY(picture && picture->size() > photo.size() / 2);

    QByteArray damaged = photo;
    const qsizetype middle = photo.size() - picture->size() / 4;  // within the scan or the last strip
    damaged[middle] = static_cast<char>(damaged.at(middle) ^ 1);
    QVERIFY(pictureData(damaged) != picture);

    options.taken = options.taken.addDays(1);
    const QByteArray otherDay = encode(options);
    QVERIFY(otherDay != photo);
    QCOMPARE(pictureData(otherDay), picture);
}

void TestPictureData::damagedFileHasNone()
{
    const QByteArray dng = dngPhoto({.upright = anything()});
    QVERIFY(!pictureData(dng.first(dng.size() - 1)));
    QVERIFY(!pictureData(dng.first(6)));
    QVERIFY(!pictureData(jpegPhoto({.upright = anything()}).first(40)));
    QVERIFY(!pictureData(QByteArray()));
    QVERIFY(!pictureData("no photo at all"));
}

MORVAK_TEST(TestPictureData);

#include "test_picture_data.moc"
