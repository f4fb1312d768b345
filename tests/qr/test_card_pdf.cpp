#include "cards/SampleCards.h"
#include "qr/BulkQRPDFExporter.h"
#include "qr/CardLayout.h"
#include "qr/QRPhotoDetector.h"
#include "qr/QRSymbol.h"
#include "support/CapturedOutput.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int dpi = 300;
constexpr int rounding = 2;  // pixels: one at the code, one at the text

SetData made(const QString& brand, const QString& model = {}, const QString& item = {})
{
    SetData set;
    set.brand = brand;
    set.model = model;
    if (!item.isEmpty())
        set.items.append({.name = item, .color = {}});
    return set;
}

/// Texts that have broken printers of text before, and short ones, whose modules are large; the last two have
/// no code.
QList<SetData> awkwardSets()
{
    const QString stack = u"a"_s + QString(40, QChar(0x0301));
    return {made(u"Noord"_s, u"Anna\nLOCATION:Elders"_s),
            made(u"中文 日本 한국"_s, u"نورة"_s, u"👗🇳🇱👨‍👩‍👧"_s),
            made(u"\u202Enekard\u2066"_s, u"a\u2028b\u2029c\vd\x01"_s, QString(3, QChar())),
            made(QString(40, QChar(0xFDFD)), QString(60, u'W')),
            made(stack, stack, QString(60, QChar(0xA0)) + u'x'),
            made(u"<b>&amp;%1</b>"_s, u"(\\)"_s),
            made(QString(800, u'x')),
            made(u"B"_s),
            made(u"Ấ"_s, u"Ấ"_s),
            made(u"a"_s + QString(12, QChar(0x0301))),
            made(QString(2400, u'x')),
            made(u"lone "_s + QChar(0xD800))};
}

QString output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool fine =
        process.waitForFinished() && process.exitCode() == 0 && process.readAllStandardError().isEmpty();
    return fine ? QString::fromUtf8(process.readAllStandardOutput()) : program + u" failed"_s;
}

/// A cell without its cut lines.
QRect pixelsInside(const QRectF& points)
{
    constexpr double scale = dpi / 72.0;
    return QRectF(points.topLeft() * scale, points.size() * scale).toRect().adjusted(3, 3, -3, -3);
}

/// The rows of an image from top to bottom as heights of inked and white bands, beginning with a white one.
QList<int> bands(const QImage& image)
{
    QList<int> heights{0};
    bool ink = false;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        const bool dark = std::any_of(row, row + image.width(), [](uchar grey) { return grey < 128; });
        if (dark != ink)
            heights.append(0);
        ink = dark;
        ++heights.last();
    }
    return heights;
}

}  // namespace

class TestCardPdf : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void pagesAndDocument_data();
    void pagesAndDocument();
    void drawingsStandWhereTheyShould_data();
    void drawingsStandWhereTheyShould();
    void textCanBeFoundAndStaysInItsCell();
    void everyCardReadsAndHasItsQuietZone_data();
    void everyCardReadsAndHasItsQuietZone();
    void failureLeavesNothing_data();
    void failureLeavesNothing();

private:
    [[nodiscard]] bool print(const QList<SetData>& sets, BulkQRDensity density) const
    {
        return BulkQRPDFExporter::exportPDF(sets, density, m_path);
    }
    [[nodiscard]] QByteArray content() const;
    [[nodiscard]] QImage page(int number) const;
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
};

void TestCardPdf::init()
{
    m_folder.emplace();
    m_path = m_folder->filePath(u"kaarten.pdf"_s);
}

/// The drawing operators of the first page.
QByteArray TestCardPdf::content() const
{
    QFile file(m_path);
    if (!file.open(QFile::ReadOnly))
        return {};
    const QByteArray pdf = file.readAll();
    for (qsizetype at = 0; (at = pdf.indexOf("stream\n", at)) >= 0; at += 7) {
        const QByteArray operators = qUncompress(QByteArray("\0\1\0\0", 4) + pdf.sliced(at + 7));
        if (operators.contains(" Tm\n"))
            return operators;
    }
    return {};
}

QImage TestCardPdf::page(int number) const
{
    const QString image = m_folder->filePath(u"page"_s);
    const QString n = QString::number(number);
    output(u"pdftoppm"_s,
           {u"-r"_s, QString::number(dpi), u"-gray"_s, u"-singlefile"_s, u"-f"_s, n, m_path, image});
    return QImage(image + u".pgm"_s).convertToFormat(QImage::Format_Grayscale8);
}

void TestCardPdf::pagesAndDocument_data()
{
    QTest::addColumn<int>("sets");
    QTest::addColumn<BulkQRDensity>("density");
    QTest::addColumn<int>("pages");
    QTest::newRow("full page") << 4 << BulkQRDensity::large << 1;
    QTest::newRow("one card more") << 5 << BulkQRDensity::large << 2;
    QTest::newRow("full compact page") << 9 << BulkQRDensity::compact << 1;
    QTest::newRow("one compact card more") << 10 << BulkQRDensity::compact << 2;
}

void TestCardPdf::pagesAndDocument()
{
    QFETCH(const int, sets);
    QFETCH(const BulkQRDensity, density);
    QFETCH(const int, pages);
    QVERIFY(print(samples::sampleCards(sets), density));
    QCOMPARE(names(), QStringList{u"kaarten.pdf"_s});
    QFile plain(m_folder->filePath(u"plain"_s));
    QVERIFY(plain.open(QFile::WriteOnly));
    QCOMPARE(QFile::permissions(m_path), plain.permissions());

    const QString about = output(u"pdfinfo"_s, {u"-box"_s, m_path}).simplified();
    QVERIFY(about.startsWith(u"Producer: cairo"_s));
    QVERIFY(!about.contains(u"Date:"_s) && !about.contains(u"Title"_s) && !about.contains(u"Author"_s));
    QVERIFY(about.contains(u"Pages: %1 "_s.arg(pages)));
    QVERIFY(about.contains(u"MediaBox: 0.00 0.00 595.28 841.89 "_s));
    static const QRegularExpression embedded(u" yes yes yes +\\d+ +0"_s);
    const QStringList fonts = output(u"pdffonts"_s, {m_path}).trimmed().split(u'\n').mid(2);
    QVERIFY(fonts.size() >= 2);
    for (const QString& font : fonts)
        QVERIFY2(font.contains(u"+Lato-"_s) && font.contains(embedded), qPrintable(font));
}

void TestCardPdf::drawingsStandWhereTheyShould_data()
{
    QTest::addColumn<BulkQRDensity>("density");
    QTest::addColumn<QStringList>("patterns");
    const QString flipped = u"^1 0 0 -1 0 841.89 cm\n"_s;  // from here on y runs down
    const QString style = u"\n0.5 0.5 0.5 RG /a0 gs\n0.5 w\n(.*\n)*\\[ 3 3\\] 0 d\n"_s;
    QTest::newRow("large") << BulkQRDensity::large
                           << QStringList{
                                  flipped,
                                  style,
                                  u" 297.641 24 m 297.641 817.891 l 24 420.945 m 571.281 420.945 l S\n"_s,
                                  u"\n127 0 0 -127 97.32 255.5975 cm\n"_s,  // the code's bottom left
                                  u"\n15 0 0 -15 \\S+ 282.3475 Tm\n"_s,
                                  u"\n10 0 0 -10 \\S+ 297.8475 Tm\n"_s,
                                  u"\n127 0 0 -127 370.96 652.5425 cm\n"_s};  // the fourth card
    QTest::newRow("compact") << BulkQRDensity::compact
                             << QStringList{
                                    flipped,
                                    style,
                                    u" 206.426 24 m 206.426 817.891 l 24 288.629 m "_s,
                                    u"\n85 0 0 -85 72.713333 173.44 cm\n"_s,
                                    u"\n11 0 0 -11 \\S+ 195.19 Tm\n"_s,
                                    u"\n8 0 0 -8 \\S+ 208.19 Tm\n"_s,
                                    u"\n85 0 0 -85 437.566667 444.57 cm\n"_s,  // the sixth has two lines
                                    u"\n11 0 0 -11 \\S+ 466.32 Tm\n"_s,
                                    u"\n8 0 0 -8 \\S+ 479.32 Tm\n"_s};
}

void TestCardPdf::drawingsStandWhereTheyShould()
{
    QFETCH(const BulkQRDensity, density);
    QFETCH(const QStringList, patterns);
    QVERIFY(print(samples::sampleCards(9), density));
    const QString drawn = QString::fromLatin1(content());
    for (const QString& pattern : patterns)
        QVERIFY2(drawn.contains(QRegularExpression(pattern)), qPrintable(pattern + drawn));
    QFile file(m_path);
    QVERIFY(file.open(QFile::ReadOnly) && file.readAll().contains("/a0 << /CA 0.4 "));
}

void TestCardPdf::textCanBeFoundAndStaysInItsCell()
{
    QList<SetData> sets = awkwardSets().mid(0, 6);
    sets.append(samples::sampleCards(3));
    QVERIFY(print(sets, BulkQRDensity::compact));
    const QString text = output(u"pdftotext"_s, {m_path, u"-"_s});
    for (const char* found :
         {"Set 2 — Café Léonie", "Jurk (terracotta), Tas (cog…", "Lotte", "<b>&amp;%1</b>"})
        QVERIFY2(text.contains(QString::fromUtf8(found)), found);
    static const QRegularExpression word(u"<word xMin=\"([^\"]+)\" .* xMax=\"([^\"]+)\" .*>W"_s);
    const auto narrowed = word.match(output(u"pdftotext"_s, {u"-bbox"_s, m_path, u"-"_s}));
    const QRectF cell = cardCell(BulkQRDensity::compact, 3);
    QVERIFY(narrowed.hasMatch());
    QVERIFY(narrowed.captured(1).toDouble() > 24 && narrowed.captured(2).toDouble() < cell.right());
}

void TestCardPdf::everyCardReadsAndHasItsQuietZone_data()
{
    QTest::addColumn<BulkQRDensity>("density");
    QTest::newRow("large") << BulkQRDensity::large;
    QTest::newRow("compact") << BulkQRDensity::compact;
}

void TestCardPdf::everyCardReadsAndHasItsQuietZone()
{
    QFETCH(const BulkQRDensity, density);
    const QList<SetData> sets = awkwardSets() + samples::sampleCards(6);
    CapturedOutput told;
    QVERIFY(print(sets, density));
    QCOMPARE(told.take().count(u"⚠️ Geen QR-code"_s), 2);
    const int perPage = measuresOf(density).perPage();
    QImage paper;
    for (int i = 0; i < sets.size(); ++i) {
        if (i % perPage == 0)
            paper = page(i / perPage + 1);
        const QImage card = paper.copy(pixelsInside(cardCell(density, i % perPage)));
        const QString text = sets.at(i).toQRText();
        const auto symbol = encodeSymbol(text);
        const QList<int> heights = bands(card);
        QCOMPARE(QRPhotoDetector::detectQRText(card), symbol ? std::optional(text) : std::nullopt);
        QCOMPARE(heights.size() > 1, symbol.has_value());
        if (symbol) {
            const double module = double(heights.at(1)) / symbol->getSize();
            QVERIFY2(heights.at(2) >= quietZone * module - rounding, qPrintable(text));
        }
    }
}

void TestCardPdf::failureLeavesNothing_data()
{
    QTest::addColumn<int>("sets");
    QTest::addColumn<QString>("name");
    QTest::addColumn<qulonglong>("diskSize");
    QTest::addColumn<int>("told");
    constexpr qulonglong ample = 10'000'000;
    QTest::newRow("no sets") << 0 << u"kaarten.pdf"_s << ample << 0;
    QTest::newRow("full on the way") << 300 << u"kaarten.pdf"_s << 100'000ULL << 1;
    QTest::newRow("a folder") << 1 << u"."_s << ample << 1;
}

void TestCardPdf::failureLeavesNothing()
{
    QFETCH(const int, sets);
    QFETCH(const QString, name);
    QFETCH(const qulonglong, diskSize);
    QFETCH(const int, told);
    m_path = m_folder->filePath(name);
    CapturedOutput output;
    {
        const FullDisk disk(diskSize);
        QVERIFY(!print(samples::sampleCards(sets), BulkQRDensity::compact));
    }
    QCOMPARE(output.take().count(u"is niet geschreven"_s), told);
    QCOMPARE(names(), QStringList());
}

MORVAK_TEST(TestCardPdf);

#include "test_card_pdf.moc"
