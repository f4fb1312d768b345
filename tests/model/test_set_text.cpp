#include "model/SetData.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QSet>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

/// All that set text carries, in one comparable text: fields in a fixed order, items as <name|colour>.
QString carried(const std::optional<SetData>& set)
{
    if (!set)
        return u"none"_s;
    QString items;
    for (const SetItem& item : set->items)
        items += u"<%1|%2>"_s.arg(item.name, item.color);
    return QStringList{set->setNumber, set->brand, items, set->model, set->location, set->email}.join(u';');
}

SetData example()
{
    SetData set;
    set.setNumber = u"12"_s;
    set.brand = u"Noord"_s;
    set.items = {{.name = u"Overshirt"_s, .color = u"navy"_s}, {.name = u"Chino"_s, .color = {}}};
    set.model = u"Anna"_s;
    set.location = u"Studio 2"_s;
    return set;
}

/// Text of letters, separators and blanks from the whole range, with no line break, and no blank at its ends.
QString randomText(QRandomGenerator& random, bool slashes)
{
    static const QString letters = u"aZß0:é—👗\"\\ \u00A0\t\u200B=-|;,"_s;
    QString text;
    const int length = random.bounded(9);
    while (text.size() < length) {
        const qsizetype at = random.bounded(letters.size());
        text += slashes && random.bounded(6) == 0 ? QString(u'/') : QString(letters.at(at));
    }
    return u'x' + text + u'y';
}

}  // namespace

class TestSetText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void newRecordsAreFresh();
    void writes();
    void readsWhatItWrote();
    void derivedTexts_data();
    void derivedTexts();
};

void TestSetText::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const auto& text, const char* expected) {
        QTest::newRow(name) << text << expected;
    };
    row("empty", "", "none");
    row("blank lines", " \n\t\r\n\u00A0", "none");
    row("a model alone is no set", "MODEL:Anna", "none");
    row("all but number and brand", "ITEM:Jeans\nMODEL:A\nLOCATION:S\nEMAIL:a@b", "none");
    row("a brand is enough", "BRAND:Noord", ";Noord;;;;");
    row("everything",
        "SET:12\nBRAND:Noord\nITEM:Overshirt/navy\nITEM:Chino\nMODEL:Anna\nLOCATION:S 2\nEMAIL:a@b",
        "12;Noord;<Overshirt|navy><Chino|>;Anna;S 2;a@b");
    row("any order, unknown keys", "MODEL:Anna\nFOO:bar\nhttps://x\nBRAND:Noord\nSET:1", "1;Noord;;Anna;;");
    row("key in any case, blanks around", " \tset\u00A0: 12 ", "12;;;;;");
    row("case mapping is Unicode's", "\u017Fet:3", "3;;;;;");
    row("further colons belong to the value", "SET:12:B", "12:B;;;;;");
    row("a value of one colon", "SET::\nBRAND:N", ":;N;;;;");
    row("leading colons are skipped", "::SET:12", "12;;;;;");
    row("no value", "SET:\nBRAND:Noord", ";Noord;;;;");
    row("no colon", "SET\nBRAND:Noord", ";Noord;;;;");
    row("an empty line does not take a value back", "SET:1\nSET: \nBRAND:N", "1;N;;;;");
    row("the later line counts", "SET:1\nSET:2\nBRAND:N\nbrand:M", "2;M;;;;");
    row("three items", "SET:1\nITEM:c\nITEM:a\nITEM:b", "1;;<c|><a|><b|>;;;");
    row("further slashes belong to the colour", "SET:1\nITEM:Jeans/Blue/Dark", "1;;<Jeans|Blue/Dark>;;;");
    row("trailing slash", "SET:1\nITEM:Jeans/", "1;;<Jeans|>;;;");
    row("blanks in an item", "SET:1\nITEM: Jeans / navy blue ", "1;;<Jeans|navy blue>;;;");
    row("leading slash", "SET:1\nITEM:/navy", "1;;<navy|>;;;");
    row("slashes only", "SET:1\nITEM:/\nITEM://\nITEM:x", "1;;<x|>;;;");
    row("a blank for a name", "SET:1\nITEM:/ /navy", "1;;<|navy>;;;");
    row("every line break", u"SET:1\r\nBRAND:N\vMODEL:A\fLOCATION:S\u0085EMAIL:e\u2028ITEM:a\u2029ITEM:b"_s,
        "1;N;<a|><b|>;A;S;e");
    row("a tab inside stays", "SET:1\t2", "1\t2;;;;;");
}

void TestSetText::reads()
{
    QFETCH(const QString, text);
    QTEST(carried(SetData::parse(text)), "expected");
}

void TestSetText::newRecordsAreFresh()
{
    const QString text = u"SET:1\nITEM:a\nITEM:a"_s;
    const double before = Timestamp::now().seconds;
    const std::optional<SetData> first = SetData::parse(text);
    const std::optional<SetData> second = SetData::parse(text);
    const double after = Timestamp::now().seconds;
    QVERIFY(first && second);
    QSet<QUuid> ids{first->id, second->id};
    for (const auto& set : {*first, *second}) {
        QVERIFY(before <= set.timestamp.seconds && set.timestamp.seconds <= after);
        QCOMPARE(set.taggedCount, 0);
        for (const SetItem& item : set.items)
            ids.insert(item.id);
    }
    QCOMPARE(ids.size(), 6);
    const double unixSeconds = static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000;
    QVERIFY(std::abs(unixSeconds - 978307200 - after) < 60);
}

void TestSetText::writes()
{
    QCOMPARE(example().toQRText(),
             u"SET:12\nBRAND:Noord\nITEM:Overshirt/navy\nITEM:Chino\nMODEL:Anna\n"_s
             "LOCATION:Studio 2");
    QCOMPARE(SetData().toQRText(), QString());
    SetData set;
    set.items = {{.name = {}, .color = u"navy"_s}, {.name = {}, .color = {}}};
    set.email = u"a@b"_s;
    QCOMPARE(set.toQRText(), u"ITEM:/navy\nITEM:\nEMAIL:a@b"_s);
}

void TestSetText::readsWhatItWrote()
{
    QRandomGenerator random(12);
    for (int i = 0; i < 3'000; ++i) {
        const auto field = [&random] {
            return random.bounded(4) == 0 ? QString() : randomText(random, true);
        };
        SetData set;
        set.setNumber = field();
        set.brand = randomText(random, true);
        for (int n = random.bounded(5); n > 0; --n)
            set.items.append({.name = randomText(random, false), .color = field()});
        set.model = field();
        set.location = field();
        set.email = field();
        QCOMPARE(carried(SetData::parse(set.toQRText())), carried(set));
    }
}

void TestSetText::derivedTexts_data()
{
    QTest::addColumn<QString>("setText");
    QTest::addColumn<QString>("headline");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("keywords");
    QTest::newRow("both") << example().toQRText() << "Set 12 — Noord"
                          << "Overshirt navy, Chino"
                          << QStringList{u"Set 12"_s, u"Noord"_s, u"Overshirt"_s, u"navy"_s, u"Chino"_s};
    QTest::newRow("number") << "SET:12"
                            << "Set 12"
                            << "" << QStringList{u"Set 12"_s};
    QTest::newRow("brand") << "BRAND:Noord"
                           << "Noord"
                           << "" << QStringList{u"Noord"_s};
    QTest::newRow("doubles stay, empty names count")
        << "BRAND:N\nITEM:N/N\nITEM:/ /N"
        << "N"
        << "N N,  N" << QStringList{u"N"_s, u"N"_s, u"N"_s, u""_s, u"N"_s};
}

void TestSetText::derivedTexts()
{
    QFETCH(const QString, setText);
    const SetData set = SetData::parse(setText).value_or(SetData());
    QTEST(set.headline(), "headline");
    QTEST(set.description(), "description");
    QTEST(set.keywords(), "keywords");
}

MORVAK_TEST(TestSetText);
#include "test_set_text.moc"
