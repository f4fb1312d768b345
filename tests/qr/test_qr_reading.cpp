#include "qr/QRGenerator.h"
#include "qr/QRPhotoDetector.h"
#include "support/TestMain.h"

#include <QPainter>
#include <QRandomGenerator>

#include <cmath>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

using morvak::QRGenerator;
using morvak::QRPhotoDetector;

namespace {

const QString setText =
    QStringLiteral("SET:12\nBRAND:Noord\nITEM:Overshirt/navy\nMODEL:Anna\nLOCATION:Studio 2");

/// A tabletop, a little uneven like every photo.
QImage tabletop(QSize size)
{
    QImage photo(size, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x) {
            const int level = 88 + int(random.bounded(8)) + 24 * x / photo.width();
            photo.setPixel(x, y, qRgb(level + 20, level + 8, level));
        }
    return photo;
}

/// The photo with the card's code, `side` pixels large, lying about its middle as `pose` says.
QImage photoOfCard(const QString& text, int side, const QTransform& pose, QSize size = {1200, 800})
{
    QImage photo = tabletop(size);
    QPainter painter(&photo);
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    painter.setTransform(pose * QTransform::fromTranslate(size.width() / 2.0, size.height() / 2.0));
    painter.drawImage(QRectF(-side / 2.0, -side / 2.0, side, side),
                      QRGenerator::generate(text, 1000).value());
    return photo;
}

QTransform tilted()
{
    const QPolygonF flat{{{-150, -150}, {150, -150}, {150, 150}, {-150, 150}}};
    const QPolygonF leaning{{{-90, -110}, {130, -150}, {150, 140}, {-110, 90}}};
    QTransform pose;
    QTransform::quadToQuad(flat, leaning, pose);
    return pose;
}

/// Each channel changed by `change(level, x, y)`.
QImage changed(QImage photo, const std::function<int(int, int, int)>& change)
{
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x) {
            const QRgb c = photo.pixel(x, y);
            const auto level = [&](int v) { return std::clamp(change(v, x, y), 0, 255); };
            photo.setPixel(x, y, qRgb(level(qRed(c)), level(qGreen(c)), level(qBlue(c))));
        }
    return photo;
}

QImage noisy(const QImage& photo, int strength)
{
    QRandomGenerator random(11);
    return changed(photo, [&](int v, int, int) { return v + int(random.bounded(2 * strength)) - strength; });
}

QImage blurred(const QImage& photo, int factor)
{
    return photo.scaled(photo.size() / factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(photo.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Four cards of an uncut sheet that lies turned by `degrees`; the code of each holds "SET:" and its number.
QImage photoOfSheet(double degrees)
{
    QImage photo = tabletop({1400, 1400});
    QPainter painter(&photo);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(700, 700);
    painter.rotate(degrees);
    painter.fillRect(-450, -450, 900, 900, Qt::white);
    for (int i = 0; i < 4; ++i)
        painter.drawImage(QRect(-400 + 450 * (i % 2), -400 + 450 * (i / 2), 300, 300),
                          QRGenerator::generate(QStringLiteral("SET:%1").arg(i + 1), 600).value());
    return photo;
}

/// A weave of squares, busy like a code and without one.
QImage chequeredCloth()
{
    return changed(tabletop({1200, 800}),
                   [](int v, int x, int y) { return (x / 9 + y / 9) % 2 ? v + 90 : v - 60; });
}

/// A cloth printed with thousands of squares that each look like a code's finder pattern; `module` in pixels.
/// The decoding library takes minutes over some of them.
QImage clothOfFinders(QSize size, double module)
{
    return changed(tabletop(size), [module](int, int x, int y) {
        const auto fromMiddle = [module](int at) { return std::abs(std::fmod(at / module, 9.0) - 4.5); };
        const double ring = std::max(fromMiddle(x), fromMiddle(y));
        return ring < 1.5 || (ring >= 2.5 && ring < 3.5) ? 40 : 200;
    });
}

/// A card whose modules were flipped at random inside the finder patterns' frame.
QImage spoiltCard()
{
    QImage code = QRGenerator::generate(setText, 41 + 8).value();
    QRandomGenerator random(3);
    for (int y = 14; y < 36; ++y)
        for (int x = 14; x < 36; ++x)
            if (random.bounded(2))
                code.setPixel(x, y, qRgb(0, 0, 0) + qRgb(255, 255, 255) - code.pixel(x, y));
    return code.scaled(code.size() * 8);
}

}  // namespace

class TestQRReading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsCardsAsTheyArePhotographed_data();
    void readsCardsAsTheyArePhotographed();
    void readsAnyPixelFormat_data();
    void readsAnyPixelFormat();
    void takesTheBytesAsUtf8_data();
    void takesTheBytesAsUtf8();
    void firstCardOfASheet_data();
    void firstCardOfASheet();
    void anEmptyCodeHidesNoOther();
    void nothingToRead_data();
    void nothingToRead();
    void aStopEndsReading();
    void fourAtOnceGetTheirOwn();
};

void TestQRReading::readsCardsAsTheyArePhotographed_data()
{
    QTest::addColumn<QImage>("photo");
    const QTransform upright;
    const QImage plain = photoOfCard(setText, 300, QTransform().rotate(12));
    QTest::newRow("upright") << photoOfCard(setText, 300, upright);
    for (const int degrees : {17, 45, 90, 135, 180, 270})
        QTest::addRow("turned by %d degrees", degrees)
            << photoOfCard(setText, 260, QTransform().rotate(degrees));
    QTest::newRow("tilted") << photoOfCard(setText, 300, tilted());
    QTest::newRow("modules of 2.4 pixels") << photoOfCard(setText, 108, QTransform().rotate(31));
    QTest::newRow("small in a large photo")
        << photoOfCard(setText, 200, QTransform().rotate(8), {4096, 2731});
    QTest::newRow("most of the photo") << photoOfCard(setText, 760, upright);
    QTest::newRow("thumbnail") << photoOfCard(setText, 108, upright, {160, 120});
    QTest::newRow("haze") << changed(plain, [](int v, int, int) { return 150 + v / 9; });
    QTest::newRow("underexposed") << changed(plain, [](int v, int, int) { return v / 9; });
    QTest::newRow("hard shadow across the code")
        << changed(plain, [](int v, int x, int) { return x < 600 ? v : v / 5; });
    QTest::newRow("noise") << noisy(plain, 90);
    QTest::newRow("slightly out of focus") << blurred(plain, 5);
    QTest::newRow("white on black") << changed(plain, [](int v, int, int) { return 255 - v; });
    QTest::newRow("mirrored") << plain.mirrored(true, false);
}

void TestQRReading::readsCardsAsTheyArePhotographed()
{
    QFETCH(QImage, photo);
    QCOMPARE(QRPhotoDetector::detectQRText(photo), std::optional(setText));
}

void TestQRReading::readsAnyPixelFormat_data()
{
    QTest::addColumn<QImage>("photo");
    const QImage code = QRGenerator::generate(setText, 301).value();  // an odd width: rows are padded
    for (const auto format :
         {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32,
          QImage::Format_RGB16, QImage::Format_RGB888, QImage::Format_Grayscale8, QImage::Format_Grayscale16,
          QImage::Format_RGBA64, QImage::Format_RGBX32FPx4})
        QTest::addRow("format %d", int(format)) << code.convertToFormat(format);
    QImage clear(400, 400, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QPainter painter(&clear);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int y = 0; y < code.height(); ++y)
        for (int x = 0; x < code.width(); ++x)
            if (qGray(code.pixel(x, y)) == 0)
                painter.fillRect(x + 50, y + 50, 1, 1, Qt::black);
    painter.end();
    QTest::newRow("black on nothing") << clear;
}

void TestQRReading::readsAnyPixelFormat()
{
    QFETCH(QImage, photo);
    QCOMPARE(QRPhotoDetector::detectQRText(photo), std::optional(setText));
}

void TestQRReading::takesTheBytesAsUtf8_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"SET:3\nBRAND:Café Łódź 日本", "SET:é", "BRAND:東京", "SET:1\nMODEL:Tomás",
                             "BRAND:Žitná 👗", "https://www.noord.example/care/1187?c=navy#12"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TestQRReading::takesTheBytesAsUtf8()
{
    QFETCH(QString, text);
    QCOMPARE(QRPhotoDetector::detectQRText(photoOfCard(text, 260, tilted())), std::optional(text));
}

void TestQRReading::firstCardOfASheet_data()
{
    QTest::addColumn<double>("degrees");
    for (const int degrees : {0, 20, 90, 180})
        QTest::addRow("sheet turned by %d degrees", degrees) << double(degrees);
}

void TestQRReading::firstCardOfASheet()
{
    QFETCH(double, degrees);
    QCOMPARE(QRPhotoDetector::detectQRText(photoOfSheet(degrees)), std::optional(QStringLiteral("SET:1")));
}

void TestQRReading::anEmptyCodeHidesNoOther()
{
    QImage photo = tabletop({1000, 500});
    QPainter painter(&photo);
    painter.drawImage(QRect(50, 100, 300, 300), QRGenerator::generate(QString(), 300).value());
    painter.drawImage(QRect(600, 100, 300, 300), QRGenerator::generate(setText, 300).value());
    painter.end();
    QCOMPARE(QRPhotoDetector::detectQRText(photo), std::optional(setText));
}

void TestQRReading::nothingToRead_data()
{
    QTest::addColumn<QImage>("photo");
    const auto filled = [](QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    };
    QTest::newRow("no image") << QImage();
    for (const QSize size : {QSize(1, 1), QSize(2, 2), QSize(3, 3), QSize(1, 900), QSize(900, 1),
                             QSize(40, 35), QSize(90, 4000)})
        QTest::addRow("white, %d by %d", size.width(), size.height()) << filled(size);
    QTest::newRow("tabletop") << tabletop({1200, 800});
    QTest::newRow("grain") << noisy(tabletop({700, 500}), 128);
    QTest::newRow("chequered cloth") << chequeredCloth();
    QTest::newRow("cloth of finder patterns") << clothOfFinders({1600, 1080}, 2);
    for (const double module : {1.0, 1.05, 1.15, 1.3})
        QTest::addRow("cloth of finder patterns of %.2f pixels", module)
            << clothOfFinders({800, 600}, module);
    QTest::newRow("empty code") << QRGenerator::generate(QString(), 300).value();
    QTest::newRow("spoilt code") << spoiltCard();
}

void TestQRReading::nothingToRead()
{
    QFETCH(QImage, photo);
    QCOMPARE(QRPhotoDetector::detectQRText(photo), std::nullopt);
}

void TestQRReading::aStopEndsReading()
{
    std::stop_source stop;
    const QImage photo = photoOfCard(setText, 300, {});
    QCOMPARE(QRPhotoDetector::detectQRText(photo, stop.get_token()), std::optional(setText));
    stop.request_stop();
    QCOMPARE(QRPhotoDetector::detectQRText(photo, stop.get_token()), std::nullopt);
}

void TestQRReading::fourAtOnceGetTheirOwn()
{
    constexpr int photos = 12;
    std::vector<QImage> images;
    for (int i = 0; i < photos; ++i) {
        const QImage photo = photoOfCard(QStringLiteral("SET:%1").arg(i), 260, QTransform().rotate(29 * i));
        images.push_back(i % 2 ? photo : changed(photo, [](int v, int, int) { return 255 - v; }));
    }
    std::vector<std::optional<QString>> texts(photos);
    {
        std::vector<std::jthread> threads;
        for (std::size_t first = 0; first < 4; ++first)
            threads.emplace_back([&, first] {
                for (std::size_t i = first; i < photos; i += 4)
                    texts[i] = QRPhotoDetector::detectQRText(images[i]);
            });
    }
    for (int i = 0; i < photos; ++i)
        QCOMPARE(texts[std::size_t(i)], std::optional(QStringLiteral("SET:%1").arg(i)));
}

MORVAK_TEST(TestQRReading);

#include "test_qr_reading.moc"
