#include "qr/CardText.h"
#include "support/TestMain.h"

using namespace morvak;
using namespace Qt::StringLiterals;

class TestCardText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesOfACard_data();
    void linesOfACard();
    void longLinesAreClipped_data();
    void longLinesAreClipped();
};

void TestCardText::linesOfACard_data()
{
    QTest::addColumn<QString>("setText");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("everything")
        << u"SET:12\nBRAND:Noord\nITEM:coated pants/brown\nITEM:sweater\nMODEL:Anna\nLOCATION:Studio 2"_s
        << QStringList{u"# Set 12 — Noord"_s, u"Anna · Studio 2"_s, u"coated pants (brown), sweater"_s};
    QTest::newRow("model alone") << u"SET:1\nMODEL:Anna"_s << QStringList{u"# Set 1"_s, u"Anna"_s};
    QTest::newRow("location alone") << u"BRAND:B\nLOCATION:L"_s << QStringList{u"# B"_s, u"L"_s};
    QTest::newRow("no model, no location") << u"SET:1\nITEM:a"_s << QStringList{u"# Set 1"_s, u"a"_s};
    QTest::newRow("control characters become spaces")
        << u"SET:1\x01\x7f\x9f 2\nMODEL:A\tB"_s << QStringList{u"# Set 1    2"_s, u"A B"_s};
    QTest::newRow("clipped by the density's limit")
        << u"BRAND:"_s + u"b"_s.repeated(41) << QStringList{u"# "_s + u"b"_s.repeated(39) + u'…'};
}

void TestCardText::linesOfACard()
{
    QFETCH(const QString, setText);
    QStringList lines;
    const SetData set = SetData::parse(setText).value();
    for (const CardLine& line : cardLines(set, BulkQRDensity::large))
        lines.append((line.headline ? u"# "_s : QString()) + line.text);
    QTEST(lines, "lines");
}

void TestCardText::longLinesAreClipped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clipped");
    const QString family = u"👨‍👩‍👧"_s;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("exactly the limit") << u"abcd"_s << u"abcd"_s;
    QTest::newRow("one more") << u"abcde"_s << u"abc…"_s;
    QTest::newRow("combining accents count with their letter")
        << u"e\u0301"_s.repeated(4) << u"e\u0301"_s.repeated(4);
    QTest::newRow("joined emoji are one, and are not cut apart")
        << family.repeated(5) << family.repeated(3) + u'…';
    QTest::newRow("flags are pairs") << u"🇳🇱🇧🇪🇩🇪🇫🇷🇪🇺"_s << u"🇳🇱🇧🇪🇩🇪…"_s;
    QTest::newRow("lone surrogates") << QString(5, QChar(0xD83D)) << QString(3, QChar(0xD83D)) + u'…';
}

void TestCardText::longLinesAreClipped()
{
    QFETCH(const QString, text);
    QTEST(clippedToCharacters(text, 4), "clipped");
}

MORVAK_TEST(TestCardText);

#include "test_card_text.moc"
