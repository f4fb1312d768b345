#include "catalog/ProductCatalog.h"
#include "support/CapturedOutput.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

using Operation = std::function<void(ProductCatalog&)>;

namespace {

/// "name[colour|colour]brand name[]brand / clients / brands"
QString state(const ProductCatalog& catalog)
{
    QStringList products;
    for (const Product& product : catalog.products())
        products.append(product.name + u'[' + product.colors.join(u'|') + u']' + product.brand);
    const QStringList lists{products.join(u' '), catalog.clients().join(u' '), catalog.brands().join(u' ')};
    return lists.join(u" / "_s);
}

}  // namespace

/// Every test starts with the state "b[x]V c[]O / An / v".
class TestProductCatalog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void operations_data();
    void operations();
    void loading();
    void unreadableFileIsKept();
    void whatCannotBeSavedIsKeptAndTriedAgain();

private:
    void write(const QByteArray& bytes) const
    {
        QFile file(m_path);
        QVERIFY(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<ProductCatalog> m_catalog;
};

void TestProductCatalog::init()
{
    m_folder.emplace();
    m_path = m_folder->filePath(u"Morvak/catalog.json"_s);
    m_catalog = std::make_unique<ProductCatalog>(m_path);
    m_catalog->addProduct(u"c"_s, {}, u"O"_s);
    m_catalog->addProduct(u"b"_s, {u"x"_s}, u"V"_s);
    m_catalog->addClient(u"An"_s);
    m_catalog->addBrand(u"v"_s);
}

void TestProductCatalog::operations_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("announced");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* announced, const char* expected,
                        const Operation& operation) {
        QTest::newRow(name) << operation << announced << expected;
    };
    const char* const same = "b[x]V c[]O / An / v";
    using C = ProductCatalog;
    row("client of blanks", "", same, [](C& c) { c.addClient(u" \t\u3000"_s); });
    row("client in another case", "", same, [](C& c) { c.addClient(u" AN"_s); });
    row("brand in another case", "", same, [](C& c) { c.addBrand(u"  V "_s); });
    row("product of a tab", "", same, [](C& c) { c.addProduct(u"\t"_s, {}, u"y"_s); });
    row("unknown updated", "", same, [](C& c) { c.updateProduct({}, u"x"_s, {}, {}); });
    row("client", "clients", "b[x]V c[]O / Åk An / v", [](C& c) { c.addClient(u" Åk "_s); });
    row("brand", "brands", "b[x]V c[]O / An / O v", [](C& c) { c.addBrand(u"\tO"_s); });
    row("client deleted", "clients", "b[x]V c[]O /  / v", [](C& c) { c.deleteClient(c.clients().first()); });
    row("brand deleted", "brands", "b[x]V c[]O / An / ", [](C& c) { c.deleteBrand(c.brands().first()); });
    row("other case deleted", "brands", same, [](C& c) { c.deleteBrand(u"V"_s); });
    row("same name", "products", "b[x]V B[] c[]O / An / v", [](C& c) { c.addProduct(u"B"_s, {}, {}); });
    row("product", "products", "b[x]V bz[ a|] O  c[]O / An / v", [](C& c) {
        c.addProduct(u" bz "_s, QStringList{u" a"_s, QString()}, u" O "_s);
    });
    row("update", "products", "c[]O z[ a]O / An / v",
        [](C& c) { c.updateProduct(c.products()[0].id, u" z "_s, {u" a"_s}, u" O "_s); });
    row("update from its own fields", "products", "c[]O V[x]b / An / v", [](C& c) {
        const Product& own = c.products().first();
        c.updateProduct(own.id, own.brand, own.colors, own.name);
    });
    row("product deleted", "products", "c[]O / An / v", [](C& c) { c.deleteProduct(c.products()[0].id); });
    row("unknown deleted", "products", same, [](C& c) { c.deleteProduct({}); });
    row("import", "products", "a[]x b[x]V bz[a|b]D c[]O / An / v",
        [](C& c) { QCOMPARE(c.importCSV(u"bz;a,b\nC\na;;x"_s, u"D"_s), 2); });
    row("import of nothing", "products", same, [](C& c) { QCOMPARE(c.importCSV({}, u"D"_s), 0); });
    row("import of too much", "products", same, [](C& c) {
        CapturedOutput output;
        QCOMPARE(c.importCSV(u"x;"_s + u"y,"_s.repeated(600'000), {}), 0);
        QVERIFY(output.take().startsWith(u"⚠️ Producten niet geïmporteerd"));
    });
}

void TestProductCatalog::operations()
{
    QFETCH(const Operation, operation);
    QVERIFY(QFile::remove(m_path));
    QStringList heard;
    const auto listen = [&](auto signal, const QString& list) {
        connect(m_catalog.get(), signal, this, [&heard, this, list] {
            heard.append(list);
            ProductCatalog saved(m_path);
            saved.load();
            QCOMPARE(state(saved), state(*m_catalog));  // it is in the file when it is told
        });
    };
    listen(&ProductCatalog::productsChanged, u"products"_s);
    listen(&ProductCatalog::clientsChanged, u"clients"_s);
    listen(&ProductCatalog::brandsChanged, u"brands"_s);
    operation(*m_catalog);
    QTEST(state(*m_catalog), "expected");
    QTEST(heard.join(u' '), "announced");
    QCOMPARE(QFile::exists(m_path), !heard.isEmpty());
}

void TestProductCatalog::loading()
{
    const QByteArray two =
        R"([{"id":"0A0B0C0D-0000-4000-8000-000000000001","name":"z","colors":[],"client":"V"},)"
        R"({"id":"0A0B0C0D-0000-4000-8000-000000000002","name":"a","colors":[]}])";
    write(two);
    m_catalog->load();
    QCOMPARE(state(*m_catalog), u"z[]V a[] / An / v"_s);
    QCOMPARE(m_catalog->allBrandNames(), (QStringList{u"v"_s, u"V"_s}));
    write(R"({"products":)" + two + R"(,"clients":["b","á","b"]})");
    m_catalog->load();
    QCOMPARE(state(*m_catalog), u"z[]V a[] / b á b / "_s);
    QCOMPARE(m_catalog->allBrandNames(), QStringList{u"V"_s});
    QCOMPARE(m_catalog->allClientNames(), (QStringList{u"á"_s, u"b"_s, u"b"_s}));
    m_catalog->save();
    QCOMPARE(QDir(m_folder->filePath(u"Morvak"_s)).entryList(QDir::Files), QStringList{u"catalog.json"_s});
}

void TestProductCatalog::unreadableFileIsKept()
{
    CapturedOutput output;
    write("not ours");
    m_catalog->load();
    m_catalog->addClient(u"Bo"_s);
    m_catalog->addClient(u"Cas"_s);
    QCOMPARE(state(*m_catalog), u"b[x]V c[]O / An Bo Cas / v"_s);
    const QStringList names = QDir(m_folder->filePath(u"Morvak"_s)).entryList(QDir::Files);
    QCOMPARE(names.size(), 2);
    QVERIFY(names.last().startsWith(u"catalog.json.onleesbaar-"));
    QVERIFY(output.take().contains(u"catalog.json is niet gelezen: geen JSON"));
}

void TestProductCatalog::whatCannotBeSavedIsKeptAndTriedAgain()
{
    const CapturedOutput output;
    ProductCatalog catalog(m_path, nullptr, std::chrono::milliseconds(5));
    catalog.load();
    {
        const FullDisk disk(10);
        catalog.addClient(u"Bo"_s);
        catalog.load();  // the file does not know Bo
        QCOMPARE(state(catalog), u"b[x]V c[]O / An Bo / v"_s);
        QVERIFY(!catalog.saver().problem().isEmpty());
    }
    QTRY_VERIFY(catalog.saver().problem().isEmpty());
    m_catalog->load();
    QCOMPARE(state(*m_catalog), state(catalog));
}

MORVAK_TEST(TestProductCatalog);
#include "test_product_catalog.moc"
