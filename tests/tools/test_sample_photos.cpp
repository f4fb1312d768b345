#include "driver/PhotoCheck.h"
#include "metadata/TaggingRequest.h"
#include "metadata/ToolLookup.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "support/TestMain.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::samples;
using namespace Qt::Literals::StringLiterals;

namespace {

using Encoder = QByteArray (*)(const PhotoOptions&);

constexpr QRgb red = 0xffc02020;
constexpr QRgb green = 0xff20c020;
constexpr QRgb blue = 0xff2020c0;
constexpr QRgb white = 0xfff0f0f0;

/// Four quarters in four colours, so that every turn and mirror image shows.
QImage quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height / 2, QColor(red));
    painter.fillRect(width / 2, 0, width / 2, height / 2, QColor(green));
    painter.fillRect(0, height / 2, width / 2, height / 2, QColor(blue));
    painter.fillRect(width / 2, height / 2, width / 2, height / 2, QColor(white));
    return image;
}

bool isNear(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) < 24 && std::abs(qGreen(one) - qGreen(other)) < 24 &&
           std::abs(qBlue(one) - qBlue(other)) < 24;
}

bool showsQuarters(const QImage& image)
{
    const int w = image.width();
    const int h = image.height();
    return isNear(image.pixel(w / 4, h / 4), red) && isNear(image.pixel(3 * w / 4, h / 4), green) &&
           isNear(image.pixel(w / 4, 3 * h / 4), blue) && isNear(image.pixel(3 * w / 4, 3 * h / 4), white);
}

QByteArray exifTool(const QStringList& arguments, const QString& path)
{
    QProcess tool;
    tool.start(findExifTool(QString()), arguments + QStringList{path}, QIODevice::ReadOnly);
    return tool.waitForFinished() ? tool.readAllStandardOutput() : QByteArray();
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The longest strip of the file, by what exiftool says about its place.
QByteArray longestStrip(const QString& path)
{
    const QStringList offsets =
        QString::fromLatin1(exifTool({u"-n"_s, u"-s3"_s, u"-a"_s, u"-StripOffsets"_s}, path)).split(u'\n');
    const QStringList lengths =
        QString::fromLatin1(exifTool({u"-n"_s, u"-s3"_s, u"-a"_s, u"-StripByteCounts"_s}, path)).split(u'\n');
    const QByteArray bytes = fileBytes(path);
    QByteArray longest;
    for (qsizetype i = 0; i < std::min(offsets.size(), lengths.size()); ++i) {
        const QByteArray strip = bytes.mid(offsets.at(i).toLongLong(), lengths.at(i).toLongLong());
        if (strip.size() > longest.size())
            longest = strip;
    }
    return longest;
}

}  // namespace

class TestSamplePhotos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void viewerSeesItUpright_data();
    void viewerSeesItUpright();
    void exifToolTagsItAndLeavesThePicture_data();
    void exifToolTagsItAndLeavesThePicture();
};

void TestSamplePhotos::viewerSeesItUpright_data()
{
    QTest::addColumn<Encoder>("encode");
    QTest::addColumn<int>("orientation");
    for (int orientation = 1; orientation <= 8; ++orientation)
        QTest::addRow("jpeg %d", orientation) << Encoder(jpegPhoto) << orientation;
    QTest::newRow("tiff 6") << Encoder(tiffPhoto) << 6;
    QTest::newRow("tiff, mirrored") << Encoder(tiffPhoto) << 2;
}

void TestSamplePhotos::viewerSeesItUpright()
{
    QFETCH(Encoder, encode);
    QFETCH(int, orientation);
    QByteArray photo = encode({.upright = quarters(240, 160), .orientation = orientation});
    QBuffer buffer(&photo);
    QImageReader reader(&buffer);
    QCOMPARE(reader.transformation() != QImageIOHandler::TransformationNone, orientation != 1);
    reader.setAutoTransform(true);
    const QImage seen = reader.read();
    QCOMPARE(seen.size(), QSize(240, 160));
    QVERIFY(showsQuarters(seen));
}

void TestSamplePhotos::exifToolTagsItAndLeavesThePicture_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<Encoder>("encode");
    QTest::addColumn<qsizetype>("size");
    QTest::addColumn<QString>("embedded");  // the tag that holds the smaller picture
    QTest::addColumn<QSize>("embeddedSize");
    const QSize thumbnail(80, 120);  // all are stored lying on their side
    const QSize preview(1080, 1620);
    QTest::newRow("jpeg") << u"JPG"_s << Encoder(jpegPhoto) << qsizetype{0} << u"-ThumbnailImage"_s
                          << thumbnail;
    QTest::newRow("padded jpeg") << u"JPG"_s << Encoder(jpegPhoto) << qsizetype{3'000'001}
                                 << u"-ThumbnailImage"_s << thumbnail;
    QTest::newRow("tiff") << u"TIF"_s << Encoder(tiffPhoto) << qsizetype{0} << QString() << QSize(0, 0);
    QTest::newRow("dng") << u"DNG"_s << Encoder(dngPhoto) << qsizetype{4'000'000} << u"-PreviewImage"_s
                         << preview;
    QTest::newRow("nef") << u"NEF"_s << Encoder(nefPhoto) << qsizetype{4'000'000} << u"-PreviewImage"_s
                         << preview;
    QTest::newRow("arw") << u"ARW"_s << Encoder(arwPhoto) << qsizetype{4'000'000} << u"-PreviewImage"_s
                         << preview;
    QTest::newRow("cr2") << u"CR2"_s << Encoder(cr2Photo) << qsizetype{4'000'000} << u"-PreviewImage"_s
                         << preview;
}

void TestSamplePhotos::exifToolTagsItAndLeavesThePicture()
{
    QFETCH(QString, suffix);
    QFETCH(Encoder, encode);
    QFETCH(qsizetype, size);
    QFETCH(QString, embedded);
    QFETCH(QSize, embeddedSize);
    const QTemporaryDir folder;
    const QString name = u"photo."_s + suffix;
    const QString path = folder.filePath(name);
    const QByteArray original = encode({.upright = quarters(1800, 1200), .orientation = 6, .size = size});
    QVERIFY(original.size() >= size);
    QVERIFY(size == 0 || original.size() < size + size / 50);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(original) == original.size());
    file.close();

    // Sound by the tool's strictest measure, but for the noise in application segments, which it does not
    // know.
    const QByteArray complaints = exifTool({u"-validate"_s, u"-warning"_s, u"-a"_s, u"-s3"_s}, path);
    for (const QByteArray& complaint : complaints.trimmed().split('\n'))
        QVERIFY2(complaint == "OK" || complaint.endsWith("(all minor)") || complaint.contains("APP15"),
                 complaint);
    QCOMPARE(exifTool({u"-n"_s, u"-s3"_s, u"-Orientation"_s}, path).trimmed(), QByteArray("6"));
    const QByteArray strip = longestStrip(path);
    const QByteArray preview = embedded.isEmpty() ? QByteArray() : exifTool({u"-b"_s, embedded}, path);
    QCOMPARE(QImage::fromData(preview).size(), embeddedSize);

    const Tagging tagging(sampleSets().constLast(), shootNamed(u"Shoot"_s));
    const QByteArray answer = exifTool(taggingOptions(tagging) + QStringList{u"-q"_s}, path);
    QCOMPARE(answer, QByteArray());
    const auto tags = driver::readTags(folder.path(), {name}, QProcessEnvironment::systemEnvironment());
    QVERIFY(tags);
    QCOMPARE(driver::tagFaults(tags->value(name), tagging), QStringList());
    const QByteArray tagged = fileBytes(path);
    QVERIFY(tagged != original);
    QVERIFY(driver::hasSamePicture(original, tagged));
    QCOMPARE(longestStrip(path), strip);
    QCOMPARE(embedded.isEmpty() ? QByteArray() : exifTool({u"-b"_s, embedded}, path), preview);
}

MORVAK_TEST(TestSamplePhotos);

#include "test_sample_photos.moc"
