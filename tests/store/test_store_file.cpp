#include "RandomShoot.h"
#include "store/StoreFile.h"
#include "support/TestMain.h"

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

/// A file in the form in which other versions write it: keys in any order, optional ones left out.
const QByteArray smallFile =
    R"([{"name":"Lookbook","id":"0A0B0C0D-0000-4000-8000-000000000001","location":"","client":"C","date":757382400,)"
    R"("sets":[{"id":"0a0b0c0d-0000-4000-8000-000000000002","setNumber":"12","brand":"Noord","items":[)"
    R"({"id":"0A0B0C0D-0000-4000-8000-000000000003","name":"Chino","color":"navy"}],"model":"Anna","location":"S",)"
    R"("timestamp":785374817.123456,"taggedCount":9007199254740993,"email":"a@b"}],)"
    R"("watchFolderPath":"/p","activationLog":[{"setId":"0A0B0C0D-0000-4000-8000-000000000002","activatedAt":1.5}]}])";

}  // namespace

class TestStoreFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writtenForm();
    void optionalKeys_data();
    void optionalKeys();
    void refused_data();
    void refused();
    void anyShootReadsBack();
    void cutOffFilesAreRefused();
    void dateThatIsNoNumberIsNotWritten();
};

void TestStoreFile::writtenForm()
{
    JsonFault fault;
    const std::optional<QList<Shoot>> shoots = decodeShoots(smallFile, fault);
    QVERIFY2(shoots, qPrintable(fault.message()));
    QCOMPARE(
        encodeShoots(*shoots),
        QByteArray(
            R"([{"activationLog":[{"activatedAt":1.5,"setId":"0A0B0C0D-0000-4000-8000-000000000002"}],)"
            R"("client":"C","date":757382400,"id":"0A0B0C0D-0000-4000-8000-000000000001","location":"",)"
            R"("name":"Lookbook","sets":[{"brand":"Noord","email":"a@b",)"
            R"("id":"0A0B0C0D-0000-4000-8000-000000000002","items":[{"color":"navy",)"
            R"("id":"0A0B0C0D-0000-4000-8000-000000000003","name":"Chino"}],"location":"S","model":"Anna",)"
            R"("setNumber":"12","taggedCount":9007199254740993,"timestamp":785374817.123456}],)"
            R"("watchFolderPath":"/p"}])"));
    QCOMPARE(encodeShoots({}), QByteArray("[]"));
}

void TestStoreFile::optionalKeys_data()
{
    QTest::addColumn<QByteArray>("file");
    QByteArray missing = with(smallFile, R"(,"taggedCount":9007199254740993,"email":"a@b")", "");
    missing = missing.left(missing.indexOf(R"(,"watchFolderPath")")) + "}]";
    QTest::newRow("missing") << missing;
    QByteArray nulls = with(smallFile, R"("taggedCount":9007199254740993,"email":"a@b")",
                            R"("taggedCount":null,"email":null)");
    nulls = nulls.left(nulls.indexOf(R"("watchFolderPath")")) +
            R"("watchFolderPath":null,"activationLog":null}])";
    QTest::newRow("null") << nulls;
}

void TestStoreFile::optionalKeys()
{
    QFETCH(const QByteArray, file);
    JsonFault fault;
    const std::optional<QList<Shoot>> shoots = decodeShoots(file, fault);
    QVERIFY2(shoots, qPrintable(fault.message()));
    const Shoot& shoot = shoots->first();
    QVERIFY(!shoot.watchFolderPath);
    QVERIFY(shoot.activationLog.isEmpty());
    QCOMPARE(shoot.sets.first().taggedCount, 0);
    QCOMPARE(shoot.sets.first().email, QString());
    const QByteArray again = encodeShoots(*shoots).value_or(QByteArray());
    QVERIFY(!again.contains("watchFolderPath"));
    QVERIFY(again.contains(R"("activationLog":[])"));
}

void TestStoreFile::refused_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QByteArray& file, const char* fault) {
        QTest::newRow(name) << file << fault;
    };
    row("empty", "", "geen JSON");
    row("no JSON", "shoots", "geen JSON bij byte 1");
    row("object", R"({"shoots":[]})", "is geen lijst");
    row("shoot is no object", "[1]", "[0] is geen object");
    row("invalid UTF-8", with(smallFile, "Lookbook", "Look\xff"), "geen JSON");
    row("NaN", with(smallFile, "757382400", "NaN"), "geen JSON");
    row("infinite", with(smallFile, "757382400", "1e999"), "geen JSON");
    row("something after the end", smallFile + "]", "geen JSON");
    row("deeply nested", QByteArray(100'000, '['), "geen JSON");
    row("deeply nested in an unknown key",
        with(smallFile, R"("location":"",)", ("\"x\":" + QByteArray(5000, '[') + ",").constData()),
        "geen JSON");
    row("date is text", with(smallFile, "757382400", R"("2025-01-01T00:00:00Z")"), "[0].date is geen getal");
    row("date is true", with(smallFile, "757382400", "true"), "[0].date is geen getal");
    row("name is null", with(smallFile, R"("Lookbook")", "null"), "[0].name ontbreekt");
    row("sets is an object", with(smallFile, R"("sets":[{)", R"("sets":{"a":[{)") + " ", "geen JSON");
    row("no brand", with(smallFile, R"("brand":"Noord",)", ""), "[0].sets[0].brand ontbreekt");
    row("key in another case", with(smallFile, R"("brand")", R"("Brand")"), "[0].sets[0].brand ontbreekt");
    row("no model", with(smallFile, R"("model":"Anna",)", ""), "[0].sets[0].model ontbreekt");
    row("number for a text", with(smallFile, R"("12")", "12"), "[0].sets[0].setNumber is geen tekst");
    row("half a photo", with(smallFile, "9007199254740993", "1.5"),
        "[0].sets[0].taggedCount is geen geheel getal");
    row("count as text", with(smallFile, "9007199254740993", R"("3")"),
        "[0].sets[0].taggedCount is geen geheel getal");
    row("id in braces",
        with(smallFile, R"("0a0b0c0d-0000-4000-8000-000000000002")",
             R"("{0a0b0c0d-0000-4000-8000-000000000002}")"),
        "[0].sets[0].id is geen UUID");
    row("item without colour", with(smallFile, R"(,"color":"navy")", ""),
        "[0].sets[0].items[0].color ontbreekt");
    row("items is null",
        with(smallFile,
             R"("items":[{"id":"0A0B0C0D-0000-4000-8000-000000000003","name":"Chino","color":"navy"}])",
             R"("items":null)"),
        "[0].sets[0].items ontbreekt");
    row("folder is a number", with(smallFile, R"("/p")", "3"), "[0].watchFolderPath is geen tekst");
    row("log entry without a moment", with(smallFile, R"(,"activatedAt":1.5)", ""),
        "[0].activationLog[0].activatedAt ontbreekt");
}

void TestStoreFile::refused()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, fault);
    JsonFault told;
    QVERIFY(!decodeShoots(file, told));
    QVERIFY2(told.message().startsWith(fault), qPrintable(told.message()));
}

void TestStoreFile::anyShootReadsBack()
{
    QRandomGenerator random(50);
    for (int i = 0; i < 300; ++i) {
        const QList<Shoot> shoots{randomShoot(random), randomShoot(random)};
        const QByteArray bytes = encodeShoots(shoots).value_or(QByteArray());
        JsonFault fault;
        const std::optional<QList<Shoot>> back = decodeShoots(bytes, fault);
        QVERIFY2(back, qPrintable(fault.message()));
        QCOMPARE(encodeShoots(*back), bytes);
    }
}

void TestStoreFile::cutOffFilesAreRefused()
{
    for (qsizetype length = 0; length < smallFile.size(); ++length) {
        JsonFault fault;
        QVERIFY(!decodeShoots(smallFile.first(length), fault));
        QVERIFY(fault.isSet());
    }
}

void TestStoreFile::dateThatIsNoNumberIsNotWritten()
{
    Shoot shoot;
    shoot.date.seconds = qQNaN();
    QVERIFY(!encodeShoots({shoot}));
}

MORVAK_TEST(TestStoreFile);
#include "test_store_file.moc"
