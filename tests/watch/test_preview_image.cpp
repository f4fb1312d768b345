#include "support/TestMain.h"
#include "watch/PhotoReading.h"
#include "watch/Thumbnail.h"

#include <QBuffer>
#include <QHash>
#include <QPainter>
#include <QTemporaryDir>

using namespace morvak;

namespace {

/// Left half red, right half blue, with a white bar along the top.
QImage landscape(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height, Qt::red);
    painter.fillRect(0, 0, width, height / 4, Qt::white);
    return image;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 95);
    return bytes;
}

QByteArray jpeg(const QImage& image)
{
    return encoded(image, "jpg");
}

QChar colourAt(const QImage& image, double x, double y)
{
    const QColor c = image.pixelColor(int(x * (image.width() - 1)), int(y * (image.height() - 1)));
    if (c.red() > 128 && c.green() > 128)
        return u'w';
    return c.red() > 128 ? u'r' : u'b';
}

/// Colours of the middle of the left, right, top and bottom edge.
QString edges(const QImage& image)
{
    return QString(colourAt(image, 0.05, 0.6)) + colourAt(image, 0.95, 0.6) + colourAt(image, 0.6, 0.05) +
           colourAt(image, 0.6, 0.95);
}

/// A tool that answers from a table of option to bytes, and keeps what it was asked.
struct FakeTool {
    QHash<QString, QByteArray> answers;
    QStringList asked;
    QString late;  ///< the question that it does not answer in time
    bool exists = true;

    PhotoEyes eyes()
    {
        PhotoEyes result;
        result.tool.exists = [this] { return exists; };
        result.tool.read = [this](const QStringList& options, const QString&) -> ToolAnswer {
            asked.append(options.join(u' '));
            if (asked.constLast() == late)
                return ToolAnswer::Kind::Late;
            return answers.value(options.join(u' '));
        };
        result.detectQRText = [this](const QImage& image, const std::stop_token&) {
            seen.append(image.size());
            return image.size() == codeOnSize ? std::optional(QStringLiteral("SET:1")) : std::nullopt;
        };
        return result;
    }

    QList<QSize> seen;
    QSize codeOnSize;
};

const QString preview = QStringLiteral("-b -PreviewImage");
const QString thumbnail = QStringLiteral("-b -ThumbnailImage");
const QString fullJpeg = QStringLiteral("-b -JpgFromRaw");
const QString orientation = QStringLiteral("-Orientation# -s3");

}  // namespace

class TestPreviewImage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void orients_data();
    void orients();
    void orientationAnswers_data();
    void orientationAnswers();
    void picksPreview_data();
    void picksPreview();
    void largePictureIsDecodedSmaller();
    void looksAtOwnPicture_data();
    void looksAtOwnPicture();
    void aToolThatIsLateIsAskedNoMore_data();
    void aToolThatIsLateIsAskedNoMore();
    void thumbnailShowsTheCentre();
};

void TestPreviewImage::orients_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("expected");  // left, right, top, bottom
    // The white bar is at: 1 top, 2 top mirrored, 3 bottom, 4 bottom mirrored, 5/6/7/8 the sides.
    QTest::newRow("1") << 1 << "rbwb";
    QTest::newRow("2") << 2 << "brwr";
    QTest::newRow("3") << 3 << "brrw";
    QTest::newRow("4") << 4 << "rbbw";
    QTest::newRow("5") << 5 << "wbrb";
    QTest::newRow("6") << 6 << "bwrb";
    QTest::newRow("7") << 7 << "rwbr";
    QTest::newRow("8") << 8 << "wrbr";
    for (const int outside : {0, 9, -6, std::numeric_limits<int>::min()})
        QTest::addRow("outside %d", outside) << outside << "rbwb";
}

void TestPreviewImage::orients()
{
    QFETCH(int, value);
    const auto image = PreviewImage::orientedImage(jpeg(landscape(160, 80)), value);
    QVERIFY(image);
    const bool turned = value >= 5 && value <= 8;
    QCOMPARE(image->size(), turned ? QSize(80, 160) : QSize(160, 80));
    QTEST(edges(*image), "expected");
}

void TestPreviewImage::orientationAnswers_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("value");
    QTest::newRow("number") << QByteArray("6\n") << 6;
    QTest::newRow("blanks and sign") << QByteArray(" +8 \r\n") << 8;
    QTest::newRow("negative") << QByteArray("-3") << -3;
    QTest::newRow("empty") << QByteArray() << 1;
    QTest::newRow("words") << QByteArray("Rotate 90 CW") << 1;
    QTest::newRow("too large") << QByteArray("4294967297") << 1;
}

void TestPreviewImage::orientationAnswers()
{
    QFETCH(QByteArray, answer);
    QTEST(parseOrientation(answer), "value");
}

void TestPreviewImage::picksPreview_data()
{
    using Answers = QHash<QString, QByteArray>;
    QTest::addColumn<QString>("name");
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<QSize>("size");
    const QByteArray large = jpeg(landscape(64, 32));
    const QByteArray small = jpeg(landscape(16, 12));
    const QByteArray broken = QByteArray("\xFF\xD8\xFF") + QByteArray(200, 'x');
    QTest::newRow("preview") << "a.nef" << Answers{{preview, large}, {thumbnail, small}} << QSize(64, 32);
    QTest::newRow("thumbnail only") << "a.jpg" << Answers{{thumbnail, small}} << QSize(16, 12);
    QTest::newRow("preview does not decode")
        << "a.nef" << Answers{{preview, broken}, {thumbnail, small}} << QSize(16, 12);
    QTest::newRow("preview is no JPEG")
        << "a.nef" << Answers{{preview, encoded(landscape(64, 32), "png")}, {thumbnail, small}}
        << QSize(16, 12);
    QTest::newRow("full-size JPEG of a RAW") << "a.RW2" << Answers{{fullJpeg, large}} << QSize(64, 32);
    QTest::newRow("not asked of a JPEG") << "a.jpg" << Answers{{fullJpeg, large}} << QSize();
    QTest::newRow("turned") << "a.nef" << Answers{{preview, large}, {orientation, "6\n"}} << QSize(32, 64);
    QTest::newRow("nothing") << "a.nef" << Answers{} << QSize();
}

void TestPreviewImage::picksPreview()
{
    using Answers = QHash<QString, QByteArray>;
    QFETCH(QString, name);
    QFETCH(Answers, answers);
    FakeTool tool;
    tool.answers = answers;
    const auto image = PreviewImage::extractPreviewImageSync(u'/' + name, tool.eyes().tool);
    QTEST(image.value_or(QImage()).isNull() ? QSize() : image->size(), "size");
    tool.exists = false;
    tool.asked.clear();
    QVERIFY(!PreviewImage::extractPreviewImageSync(u'/' + name, tool.eyes().tool));
    QVERIFY(tool.asked.isEmpty());
}

void TestPreviewImage::largePictureIsDecodedSmaller()
{
    const auto image = PreviewImage::orientedImage(jpeg(landscape(6000, 1500)), 1);
    QVERIFY(image);
    QVERIFY(image->width() <= 4096 && image->width() >= 2048);
    QCOMPARE(edges(*image), QStringLiteral("rbwb"));
}

void TestPreviewImage::looksAtOwnPicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("previewSize");
    QTest::addColumn<QSize>("codeOn");
    QTest::addColumn<QList<QSize>>("seen");
    QTest::addColumn<bool>("found");
    const QSize own(1000, 800);
    const QSize large(1600, 100);
    QTest::newRow("no preview") << "a.jpg" << QSize() << own << QList{own} << true;
    QTest::newRow("small preview without a code")
        << "a.jpg" << QSize(160, 120) << own << QList{QSize(160, 120), own} << true;
    QTest::newRow("small preview with a code")
        << "a.jpg" << QSize(160, 120) << QSize(160, 120) << QList{QSize(160, 120)} << true;
    QTest::newRow("large preview without a code") << "a.jpg" << large << own << QList{large} << false;
    QTest::newRow("TIFF") << "a.TIF" << QSize() << own << QList{own} << true;
    QTest::newRow("RAW data stays closed") << "a.dng" << QSize() << own << QList<QSize>{} << false;
}

void TestPreviewImage::looksAtOwnPicture()
{
    QFETCH(QString, name);
    QFETCH(QSize, previewSize);
    QFETCH(QSize, codeOn);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QVERIFY(landscape(1000, 800).save(path, name.endsWith(u"jpg") ? "jpg" : "tiff"));
    FakeTool tool;
    tool.codeOnSize = codeOn;
    if (!previewSize.isEmpty())
        tool.answers.insert(preview, jpeg(landscape(previewSize.width(), previewSize.height())));
    const PhotoReading reading = readPhoto(path, true, tool.eyes(), {});
    QTEST(tool.seen, "seen");
    QTEST(reading.codeText.has_value(), "found");
    QVERIFY(tool.asked.count(orientation) <= 1);
    QCOMPARE(reading.thumbnail.isNull(), tool.seen.isEmpty());

    tool.seen.clear();
    const PhotoReading unlooked = readPhoto(path, false, tool.eyes(), {});
    QVERIFY(tool.seen.isEmpty() && !unlooked.codeText);
    QCOMPARE(unlooked.thumbnail.isNull(), previewSize.isEmpty());
}

void TestPreviewImage::aToolThatIsLateIsAskedNoMore_data()
{
    QTest::addColumn<QString>("late");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<bool>("isIncomplete");
    QTest::newRow("at once") << preview << "a.dng" << QStringList{preview} << true;
    QTest::newRow("then") << thumbnail << "a.dng" << QStringList{preview, thumbnail} << true;
    QTest::newRow("the own picture shows a code") << preview << "a.jpg" << QStringList{preview} << false;
    QTest::newRow("never") << QString() << "a.dng" << QStringList{preview, thumbnail, fullJpeg} << false;
}

void TestPreviewImage::aToolThatIsLateIsAskedNoMore()
{
    QFETCH(const QString, late);
    QFETCH(const QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QVERIFY(landscape(1000, 800).save(path, "jpg"));
    FakeTool tool;
    tool.late = late;
    tool.codeOnSize = QSize(1000, 800);
    const PhotoReading reading = readPhoto(path, true, tool.eyes(), {});
    QTEST(tool.asked, "asked");
    QTEST(reading.isIncomplete(), "isIncomplete");
}

void TestPreviewImage::thumbnailShowsTheCentre()
{
    QVERIFY(makeThumbnail(QImage()).isNull());
    QImage portrait(80, 120, QImage::Format_RGB32);
    portrait.fill(Qt::red);
    QPainter(&portrait).fillRect(0, 40, 80, 40, Qt::blue);
    const QImage thumbnailImage = makeThumbnail(portrait);
    QCOMPARE(thumbnailImage.size(), QSize(120, 80));
    QCOMPARE(colourAt(thumbnailImage, 0.5, 0.5), QChar(u'b'));
    QCOMPARE(colourAt(thumbnailImage, 0.5, 0.0), QChar(u'r'));
    QCOMPARE(colourAt(thumbnailImage, 0.5, 1.0), QChar(u'r'));
    QCOMPARE(makeThumbnail(thumbnailImage), thumbnailImage);
    QCOMPARE(makeThumbnail(QImage(1, 5000, QImage::Format_RGB32)).size(), QSize(120, 80));
}

MORVAK_TEST(TestPreviewImage);
#include "test_preview_image.moc"
