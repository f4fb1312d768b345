#include "catalog/CatalogCsv.h"
#include "support/TestMain.h"
#include "text/ImportText.h"

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype many = mostImportedRecords;

/// "name[colour|colour]brand", a product a line; "refused" when the text is.
QString described(const std::optional<QList<Product>>& products)
{
    if (!products)
        return u"refused"_s;
    QStringList lines;
    for (const Product& product : *products)
        lines.append(product.name + u'[' + product.colors.join(u'|') + u']' + product.brand);
    return lines.join(u'\n');
}

/// Lines of different names that all go on in the same way.
QString lines(qsizetype count, const QString& rest)
{
    QString text;
    for (qsizetype i = 0; i < count; ++i)
        text += QString::number(i) + rest + u'\n';
    return text;
}

}  // namespace

class TestCatalogCsv : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reading_data();
    void reading();
    void writing();
};

void TestCatalogCsv::reading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("products");
    const auto row = [](const char* name, const QString& text, const QString& products) {
        QTest::newRow(name) << text << products;
    };
    row("blank lines", u" \n\t\r\n\u2028"_s, {});
    row("header, empty brand", u"Naam;Kleuren;Merk\nsweater;blue navy;"_s, u"sweater[blue navy]"_s);
    row("no brand column", u"sweater;blue navy\nsock"_s, u"sweater[blue navy] D \nsock[] D "_s);
    row("blanks", u" a b ;brown, navy\t; Mr Velora\u00A0"_s, u"a b[brown|navy]Mr Velora"_s);
    row("empty colours are dropped", u"jacket;red,,  ,blue;x"_s, u"jacket[red|blue]x"_s);
    row("further semicolons belong to the brand", u"a;b;c;d;"_s, u"a[b]c;d;"_s);
    row("no name", u";;x\n ;red\n;"_s, {});
    row("header words anywhere, in any case", u"Unnamed jacket\nBadNAAM;x\nName"_s, {});
    row("known, or the same name again", u"SOK;a\nsweater;a\nSWEATER;b;c\nsweaters;;"_s,
        u"sweater[a] D \nsweaters[]"_s);
    row("simple folding only", u"straße;;\nSTRASSE;;\nSTRAẞE;;\nΣ;;\nς;;"_s, u"straße[]\nSTRASSE[]\nΣ[]"_s);
    row("every line break", u"a;;\rb;;\vc;;\fd;;\r\ne;;\u0085f;;\u2028g;;\u2029h;;"_s,
        u"a[]\nb[]\nc[]\nd[]\ne[]\nf[]\ng[]\nh[]"_s);
    row("quotes are nothing special", u"\"pants; wide\";red;x"_s, u"\"pants[wide\"]red;x"_s);
    row("byte-order mark", u"\uFEFFSOK;rood;x\n\uFEFFjas;;y"_s, u"\uFEFFjas[]y"_s);
    row("NUL and half a character", u"a\0b;\xD800;\xDC00"_s, u"a\0b[\xD800]\xDC00"_s);
    row("long name", QString(10 << 20, u'x') + u';', QString(10 << 20, u'x') + u"[] D "_s);
    row("long row of nothing", u"jas;"_s + QString(10 << 20, u','), u"jas[] D "_s);
    row("a million rows of one name", u"jas;rood;x\n"_s.repeated(1'000'000), u"jas[rood]x"_s);
    row("too long", QString(mostImportedBytes + 1, u'a'), u"refused"_s);
    row("too many products", lines(many + 1, u";"_s), u"refused"_s);
    row("too many colours in a row", u"jas;"_s + u"x,"_s.repeated(many), u"refused"_s);
    row("too many colours", lines(1001, u';' + u"x,"_s.repeated(many / 1000)), u"refused"_s);
}

void TestCatalogCsv::reading()
{
    QFETCH(const QString, text);
    Product known;
    known.name = u"Sok"_s;
    const QString read = described(readCatalogCsv(text, u" D "_s, {known}));
    QFETCH(const QString, products);
    QVERIFY2(read == products, qPrintable(read.left(1000)));
}

void TestCatalogCsv::writing()
{
    QCOMPARE(writeCatalogCsv({}), u"Naam;Kleuren;Merk"_s);
    const QList<Product> products{{{}, u"pants; wide"_s, {u"brown"_s, u"navy"_s}, {}},
                                  {{}, u"5\" zip"_s, {u"a;b"_s, u"c"_s}, u"x\ny"_s},
                                  {{}, u"a\rb"_s, {}, u"👗"_s}};
    QCOMPARE(
        writeCatalogCsv(products),
        u"Naam;Kleuren;Merk\n\"pants; wide\";brown, navy;\n\"5\"\" zip\";\"a;b, c\";\"x\ny\"\na\rb;;👗"_s);
}

MORVAK_TEST(TestCatalogCsv);
#include "test_catalog_csv.moc"
