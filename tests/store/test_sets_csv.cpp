#include "RandomShoot.h"
#include "store/SetsCsv.h"
#include "support/TestMain.h"
#include "text/ImportText.h"
#include "text/Lines.h"

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

/// Set text on one line a set.
QStringList cards(const QList<SetData>& sets)
{
    QStringList texts;
    for (const SetData& set : sets)
        texts.append(set.toQRText().replace(u'\n', u'|'));
    return texts;
}

/// What CSV carries of a text, and set text of an item's name.
QString carried(QString text, const QString& lost = u"\""_s)
{
    text.removeIf([&lost](QChar c) { return isLineBreak(c) || lost.contains(c); });
    return trimmed(text).toString();
}

SetData carriedSet(QRandomGenerator& random)
{
    SetData set = randomSet(random);
    for (QString SetData::*text : {&SetData::brand, &SetData::model, &SetData::location, &SetData::email})
        set.*text = carried(set.*text);
    set.setNumber = u'n' + carried(set.setNumber);
    for (SetItem& item : set.items)
        item = {.name = u'i' + carried(item.name, u"\",/"_s), .color = carried(item.color, u"\","_s)};
    if (set.items.isEmpty())
        set.brand += u'b';
    return set;
}

}  // namespace

class TestSetsCsv : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void writtenForm();
    void anySetReadsBack();
};

void TestSetsCsv::rows_data()
{
    QTest::addColumn<QString>("fields");  // between bars
    const auto row = [](const char* line, const char* fields) {
        QTest::newRow(line) << QString::fromUtf8(fields);
    };
    row("", "");
    row("a", "a");
    row(";", "|");
    row(" a ;\tb\u00A0; ", "a|b|");
    row("\"a;b\";c", "a;b|c");
    row("x\"a;b\"y;c", "xa;by|c");
    row("\"a\"\"b\"", "ab");
    row("a\"b;c;d", "ab;c;d");
    row("\" a \"", "a");
}

void TestSetsCsv::rows()
{
    QTEST(parseCSVRow(QString::fromUtf8(QTest::currentDataTag())).join(u'|'), "fields");
}

void TestSetsCsv::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("sets");
    const auto row = [](const char* name, const QString& text, const QStringList& sets) {
        QTest::newRow(name) << text << sets;
    };
    row("as the import sheet shows it",
        u"Set;Merk;Items;Model;Locatie\n1;Velora;coated pants/brown, sweater/blue navy;Anna;Studio A"_s,
        {u"SET:1|BRAND:Velora|ITEM:coated pants/brown|ITEM:sweater/blue navy|MODEL:Anna|LOCATION:Studio A"_s});
    row("columns in any order, by a part of their name in any case",
        u"E-MAIL; Shootlocation ;Productnaam;\"SET;NR\";Fotomodel;Getagd\na@b;L;P;7;M;40"_s,
        {u"SET:7|BRAND:P|MODEL:M|LOCATION:L|EMAIL:a@b"_s});
    row("a column for two things, and the first of several", u"Setnaam;set;merk\nx;y;z"_s,
        {u"SET:x|BRAND:x"_s});
    row("neither brand nor item is no set, but has its number", u"Set;Merk;Model\n;A\n \t\n7;;M\n\n;B"_s,
        {u"SET:1|BRAND:A"_s, u"SET:3|BRAND:B"_s});
    row("list of items", u"Items\n jeans / blue , , /shirt/,//,a//b , / /c"_s,
        {u"SET:1|ITEM:jeans/blue|ITEM:shirt|ITEM:a//b"_s});
    row("one list column, further ones hold one item",
        u"Item 1;Set;Item 2;item3\njeans/blue, sok;4;shirt/white, wit;/\n;5;;rok\nx;6"_s,
        {u"SET:4|ITEM:jeans/blue|ITEM:sok|ITEM:shirt/white, wit"_s, u"SET:5|ITEM:rok"_s, u"SET:6|ITEM:x"_s});
    row("rows shorter and longer than the header", u"Set;Merk;Items;Model\n1;A\n2;B;x;M;L;E"_s,
        {u"SET:1|BRAND:A"_s, u"SET:2|BRAND:B|ITEM:x|MODEL:M"_s});
    row("byte-order mark, every kind of line", u"\uFEFFSet;Merk\r\n1;A\u20282;B\u0085\n3;\"C\n4;D\""_s,
        {u"SET:1|BRAND:A"_s, u"SET:2|BRAND:B"_s, u"SET:3|BRAND:C"_s, u"SET:4|BRAND:D"_s});
    row("no column that is known", u"a;b\n1;2"_s, {});
    const QString odd = u"a\0b"_s + QChar(0xDCFF);
    row("nought and half a character", u"merk\n"_s + odd, {u"SET:1|BRAND:"_s + odd});
    const QString farRight(16'383, u';');
    row("more columns than any spreadsheet has",
        u"merk"_s + farRight + u"item;item\nA"_s + farRight + u"x;y"_s, {u"SET:1|BRAND:A|ITEM:x"_s});
}

void TestSetsCsv::reads()
{
    QFETCH(const QString, text);
    QString fault;
    const auto sets = decodeSetsCsv(text, fault);
    QVERIFY2(sets, qPrintable(fault));
    QTEST(cards(*sets), "sets");
}

void TestSetsCsv::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QString() << u"geen kopregel met regels eronder"_s;
    QTest::newRow("header alone") << u"\n \nSet;Merk\n\t\n"_s << u"geen kopregel met regels eronder"_s;
    QTest::newRow("too long") << u"merk\n"_s + QString(mostImportedBytes, u'x') << u"te groot"_s;
    QTest::newRow("too many sets") << u"merk\n"_s + u"a\n"_s.repeated(mostImportedRecords + 1)
                                   << u"te veel sets en items"_s;
    QTest::newRow("too many items") << u"item\n"_s + u"a,"_s.repeated(mostImportedRecords)
                                    << u"te veel sets en items"_s;
}

void TestSetsCsv::refuses()
{
    QFETCH(const QString, text);
    QString fault;
    QVERIFY(!decodeSetsCsv(text, fault));
    QTEST(fault, "reason");
}

void TestSetsCsv::writtenForm()
{
    SetData full = *SetData::parse(u"SET:12\nBRAND:A;B\nITEM:x/y\nITEM:\"z\"\nMODEL:a, b\nEMAIL:c\u2028"_s);
    full.location = u"a\nb"_s;
    full.taggedCount = 7;
    SetData empty;
    QCOMPARE(encodeSetsCsv({full, empty}),
             u"Set;Merk;Items;Model;Locatie;Email;Getagd\n"
             "12;\"A;B\";\"x/y, \"\"z\"\"\";a, b;\"a\nb\";c;7\n"
             ";;;;;;0"_s);
    QCOMPARE(encodeSetsCsv({}), u"Set;Merk;Items;Model;Locatie;Email;Getagd"_s);
}

void TestSetsCsv::anySetReadsBack()
{
    QRandomGenerator random(13);
    for (int i = 0; i < 1000; ++i) {
        const QList<SetData> sets{carriedSet(random), carriedSet(random)};
        QString fault;
        const auto back = decodeSetsCsv(encodeSetsCsv(sets), fault);
        QVERIFY2(back, qPrintable(fault));
        QCOMPARE(cards(*back), cards(sets));
    }
}

MORVAK_TEST(TestSetsCsv);
#include "test_sets_csv.moc"
