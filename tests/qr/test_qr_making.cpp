#include "qr/QRGenerator.h"
#include "qr/QRPhotoDetector.h"
#include "support/TestMain.h"

#include <algorithm>
#include <cmath>
#include <limits>

using morvak::QRGenerator;
using morvak::QRPhotoDetector;

namespace {

constexpr int quietZone = 4;

bool dark(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y)) < 128;
}

/// Lengths of the alternating white and black stretches of a row of pixels.
QList<int> stretches(const QImage& image, int y)
{
    QList<int> lengths{0};
    for (int x = 0; x < image.width(); ++x) {
        if (x > 0 && dark(image, x, y) != dark(image, x - 1, y))
            lengths.append(0);
        ++lengths.last();
    }
    return lengths;
}

}  // namespace

class TestQRMaking : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void madeCodesReadBack_data();
    void madeCodesReadBack();
    void imageHasExactlyTheSizeAskedFor_data();
    void imageHasExactlyTheSizeAskedFor();
    void impossibleRequestsGiveNothing_data();
    void impossibleRequestsGiveNothing();
    void smallestVersionInByteModeAtLevelM_data();
    void smallestVersionInByteModeAtLevelM();
    void modulesDifferByOnePixelAtMost();
    void quietZoneAndPureColours();
    void levelIsNotRaisedWhereThereIsRoom();
};

void TestQRMaking::madeCodesReadBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one letter") << QStringLiteral("x");
    QTest::newRow("set text") << QStringLiteral("SET:12\nBRAND:Noord\nITEM:Overshirt/navy\nMODEL:Anna");
    QTest::newRow("several scripts") << QStringLiteral("SET:3\nBRAND:Café Łódź 日本 👗");
    QTest::newRow("short, would pass for another character set") << QStringLiteral("é");
    QTest::newRow("line breaks, tabs and blanks stay") << QStringLiteral(" SET:1\r\n\tITEM:a ");
    QTest::newRow("1,000 bytes") << QString(1000, QLatin1Char('m'));
    QTest::newRow("all that fits") << QString(2331, QLatin1Char('m'));
}

void TestQRMaking::madeCodesReadBack()
{
    QFETCH(QString, text);
    const auto image = QRGenerator::generate(text, 600);
    QVERIFY(image);
    QCOMPARE(QRPhotoDetector::detectQRText(*image), std::optional(text));
}

void TestQRMaking::imageHasExactlyTheSizeAskedFor_data()
{
    QTest::addColumn<double>("size");
    QTest::addColumn<int>("pixels");
    QTest::newRow("preview") << 300.0 << 300;
    QTest::newRow("export") << 600.0 << 600;
    QTest::newRow("rounded to whole pixels") << 300.6 << 301;
    QTest::newRow("fewer pixels than modules") << 1.0 << 1;
    QTest::newRow("large") << 5000.0 << 5000;
}

void TestQRMaking::imageHasExactlyTheSizeAskedFor()
{
    QFETCH(double, size);
    QFETCH(int, pixels);
    for (const int length : {0, 40, 2331}) {  // smallest, middling and largest version
        const auto image = QRGenerator::generate(QString(length, QLatin1Char('a')), size);
        QVERIFY(image);
        QCOMPARE(image->size(), QSize(pixels, pixels));
    }
}

void TestQRMaking::impossibleRequestsGiveNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("size");
    const QString text = QStringLiteral("SET:1");
    QTest::newRow("one byte too long") << QString(2332, QLatin1Char('a')) << 600.0;
    QTest::newRow("too long in bytes, not in characters") << QString(1166, QChar(0xE9)) << 600.0;
    QTest::newRow("very long") << QString(100'000, QLatin1Char('a')) << 600.0;
    QTest::newRow("lone high surrogate at the end") << text + QChar(0xD83D) << 600.0;
    QTest::newRow("lone low surrogate inside") << text + QChar(0xDC57) + text << 600.0;
    QTest::newRow("no size") << text << 0.0;
    QTest::newRow("negative size") << text << -300.0;
    QTest::newRow("too large") << text << 16385.0;
    QTest::newRow("infinite") << text << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << text << std::nan("");
}

void TestQRMaking::impossibleRequestsGiveNothing()
{
    QFETCH(QString, text);
    QFETCH(double, size);
    QVERIFY(!QRGenerator::generate(text, size));
}

void TestQRMaking::smallestVersionInByteModeAtLevelM_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("modules");
    QTest::newRow("empty text is the smallest symbol") << QString() << 21;
    QTest::newRow("14 bytes fill version 1") << QString(14, QLatin1Char('a')) << 21;
    QTest::newRow("15 bytes need version 2") << QString(15, QLatin1Char('a')) << 25;
    QTest::newRow("digits count as bytes") << QString(15, QLatin1Char('7')) << 25;
    QTest::newRow("2,331 bytes fill version 40") << QString(2331, QLatin1Char('a')) << 177;
}

void TestQRMaking::smallestVersionInByteModeAtLevelM()
{
    QFETCH(QString, text);
    QFETCH(int, modules);
    constexpr int pixels = 3;  // a module
    const auto image = QRGenerator::generate(text, (modules + 2 * quietZone) * pixels);
    QVERIFY(image);
    const QList<int> top = stretches(*image, quietZone * pixels);
    QCOMPARE(top.first(), quietZone * pixels);
    QCOMPARE(top.at(1), 7 * pixels);  // a finder pattern's edge
    QCOMPARE(top.at(top.size() - 2), 7 * pixels);
    QCOMPARE(top.last(), quietZone * pixels);
}

void TestQRMaking::modulesDifferByOnePixelAtMost()
{
    constexpr int modules = 25;
    constexpr int size = 500;  // 15.15 pixels a module
    const auto image = QRGenerator::generate(QString(20, QLatin1Char('a')), size);
    QVERIFY(image);
    const int timingRow = size * (2 * (quietZone + 6) + 1) / (2 * (modules + 2 * quietZone));
    const QList<int> row = stretches(*image, timingRow);
    QCOMPARE(row.size(), modules - 2 * 7 + 4);  // single modules between two finders and two margins
    for (const int length : row.mid(2, row.size() - 4))
        QVERIFY(length == 15 || length == 16);
}

void TestQRMaking::quietZoneAndPureColours()
{
    constexpr int modules = 21 + 2 * quietZone;
    const auto image = QRGenerator::generate(QStringLiteral("SET:1"), modules);
    QVERIFY(image);
    const QRect symbol = image->rect().adjusted(quietZone, quietZone, -quietZone, -quietZone);
    int darkModules = 0;
    for (int y = 0; y < modules; ++y)
        for (int x = 0; x < modules; ++x) {
            const QRgb colour = image->pixel(x, y);
            QVERIFY(colour == qRgb(0, 0, 0) || colour == qRgb(255, 255, 255));
            QVERIFY(symbol.contains(x, y) || colour == qRgb(255, 255, 255));
            darkModules += dark(*image, x, y);
        }
    QVERIFY(darkModules > 21 * 21 / 3);
}

void TestQRMaking::levelIsNotRaisedWhereThereIsRoom()
{
    // The first two bits of the format information hold the level, M being 00, exclusive-or'ed with 10.
    const auto image = QRGenerator::generate(QStringLiteral("x"), 21 + 2 * quietZone);
    QVERIFY(image);
    QVERIFY(dark(*image, quietZone, quietZone + 8));
    QVERIFY(!dark(*image, quietZone + 1, quietZone + 8));
}

MORVAK_TEST(TestQRMaking);

#include "test_qr_making.moc"
