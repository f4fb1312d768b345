#include "support/TestMain.h"
#include "text/Lines.h"

using namespace morvak;
using namespace Qt::StringLiterals;

class TestLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void classesOfCharacters();
    void trimmingKeepsLineBreaks();
    void cutting_data();
    void cutting();
    void splitting_data();
    void splitting();
};

void TestLines::classesOfCharacters()
{
    // Over all of UTF-16: what is one class is not the other, and no other white space is either.
    QString breaks;
    QString spaces;
    for (char32_t code = 0; code <= 0xFFFF; ++code) {
        const QChar c(static_cast<char16_t>(code));
        if (isLineBreak(c))
            breaks.append(c);
        if (isHorizontalSpace(c))
            spaces.append(c);
    }
    QCOMPARE(breaks, u"\n\v\f\r\u0085\u2028\u2029"_s);
    QCOMPARE(spaces,
             u"\t \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"_s
             "\u200A\u202F\u205F\u3000");
}

void TestLines::trimmingKeepsLineBreaks()
{
    QCOMPARE(trimmed(u"\t \u00A0a b\u3000").toString(), u"a b"_s);
    QCOMPARE(trimmed(u" \na\r ").toString(), u"\na\r"_s);
    QCOMPARE(trimmed(u" \t ").toString(), QString());
    QCOMPARE(trimmed(u"\u200Ba").toString(), u"\u200Ba"_s);  // zero width is no space
}

void TestLines::cutting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("empty") << "" << QStringList{QString()};
    QTest::newRow("no break") << "a" << QStringList{u"a"_s};
    QTest::newRow("CR LF") << "a\r\nb" << QStringList{u"a"_s, u""_s, u"b"_s};
    QTest::newRow("breaks at both ends") << "\na\n" << QStringList{u""_s, u"a"_s, u""_s};
    QTest::newRow("every break") << u"a\nb\vc\fd\re\u0085f\u2028g\u2029h"_s
                                 << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s,
                                                u"e"_s, u"f"_s, u"g"_s, u"h"_s};
}

void TestLines::cutting()
{
    QFETCH(const QString, text);
    QStringList pieces;
    for (const QStringView piece : cutAtLineBreaks(text))
        pieces.append(piece.toString());
    QTEST(pieces, "pieces");
}

void TestLines::splitting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("parts");  // none, the first, or both
    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("separators only") << "///" << QStringList();
    QTest::newRow("no separator") << "a" << QStringList{u"a"_s};
    QTest::newRow("two parts") << "a/b" << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("leading separators are skipped") << "//a/b" << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("nothing after the separator") << "/a/" << QStringList{u"a"_s};
    QTest::newRow("further separators belong to the second part") << "a//b/" << QStringList{u"a"_s, u"/b/"_s};
    QTest::newRow("blanks stay") << "/ a / b" << QStringList{u" a "_s, u" b"_s};
}

void TestLines::splitting()
{
    QFETCH(const QString, text);
    QStringList parts;
    if (const std::optional<SplitText> split = splitOnce(text, u'/')) {
        parts.append(split->first.toString());
        if (split->second)
            parts.append(split->second->toString());
    }
    QTEST(parts, "parts");
}

MORVAK_TEST(TestLines);
#include "test_lines.moc"
