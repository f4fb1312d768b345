#include "catalog/CatalogFile.h"
#include "support/TestMain.h"

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

const QByteArray product =
    R"({"id":"0A0B0C0D-0000-4000-8000-000000000001","name":"jas","colors":["navy","écru"],"brand":"Orva"})";
const QByteArray clients = R"("clients":["Klant"])";
const QByteArray brands = R"("brands":["Velora"])";

QByteArray with(const char* before, const char* after)
{
    return product.contains(before) ? QByteArray(product).replace(before, after) : QByteArray();
}

QByteArray fileOf(const QByteArray& inside, const QByteArray& rest = clients + ',' + brands)
{
    return R"({"products":[)" + inside + "]," + rest + '}';
}

/// How the content is written today, a bare list as a list; the fault when it cannot be read.
QByteArray readAndWritten(const QByteArray& file)
{
    JsonFault fault;
    const std::optional<CatalogContent> content = decodeCatalog(file, fault);
    if (!content)
        return fault.message().toUtf8();
    if (const auto* products = std::get_if<QList<Product>>(&*content))
        return "bare " + encodeCatalog({*products, {}, {}});
    return encodeCatalog(std::get<CatalogData>(*content));
}

}  // namespace

class TestCatalogFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reading_data();
    void reading();
};

void TestCatalogFile::reading_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("outcome");
    const auto row = [](const char* name, const QByteArray& file, const QByteArray& outcome) {
        QTest::newRow(name) << file << outcome;
    };
    const auto branded = [](const char* members) { return with(R"("brand":"Orva")", members); };
    const QByteArray now = fileOf(product);
    const QByteArray general = fileOf(branded(R"("brand":"")"));
    const QByteArray bare = "bare " + fileOf(product, R"("clients":[],"brands":[])");
    row("as written", now, now);
    row("other order, small id",
        '{' + brands + ',' + clients + R"(,"products":[)" + with("A0B0C0D", "a0b0c0d") + "]}", now);
    const QByteArray odd = fileOf(with("jas", "\\\"\\\\\\u0000\\u000a\\ud800👗"));
    row("any text", odd, odd);
    row("no brands", fileOf(product, clients), fileOf(product, clients + R"(,"brands":[])"));
    row("brands null", fileOf(product, clients + R"(,"brands":null)"),
        fileOf(product, clients + R"(,"brands":[])"));
    row("brand under client", fileOf(branded(R"("client":"Orva")")), now);
    row("empty brand, client", fileOf(branded(R"("client":"Orva","brand":"")")), now);
    row("brand and client both null", fileOf(branded(R"("brand":null,"client":null)")), general);
    row("neither", fileOf(branded(R"("x":1)")), general);
    row("a brand leaves client alone", fileOf(branded(R"("brand":"Orva","client":7)")), now);
    row("bare list", '[' + product + ']', bare);
    row("bare list with a stranger", '[' + product + ",1]", "[1] is geen object");
    row("no products", '{' + clients + '}', ".products ontbreekt");
    row("no clients", fileOf(product, brands), ".clients ontbreekt");
    row("client of another type", fileOf({}, R"("clients":["a",1])"), ".clients[1] is geen tekst");
    row("brands of another type", fileOf({}, clients + R"(,"brands":"a")"), ".brands is geen lijst");
    row("no id", fileOf(with("id", "ID")), ".products[0].id ontbreekt");
    row("no name", fileOf(with("name", "naam")), ".products[0].name ontbreekt");
    row("no colours", fileOf(with("colors", "c")), ".products[0].colors ontbreekt");
    row("colour is no text", fileOf(with(R"("navy")", "{}")), ".products[0].colors[0] is geen tekst");
    row("brand is no text", fileOf(with(R"("Orva")", "1")), ".products[0].brand is geen tekst");
    row("old brand is no text", fileOf(branded(R"("client":1)")), ".products[0].client is geen tekst");
}

void TestCatalogFile::reading()
{
    QFETCH(const QByteArray, file);
    QTEST(readAndWritten(file), "outcome");
}

MORVAK_TEST(TestCatalogFile);
#include "test_catalog_file.moc"
