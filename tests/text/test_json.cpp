#include "support/TestMain.h"
#include "text/JsonFields.h"
#include "text/JsonWriter.h"

#include <QJsonDocument>
#include <QRandomGenerator>

#include <bit>
#include <cmath>
#include <limits>

using namespace morvak;
using namespace Qt::StringLiterals;

namespace {

template <typename Write>
QByteArray written(const Write& write)
{
    JsonWriter json;
    json.beginArray();
    write(json);
    json.endArray();
    return json.take();
}

QJsonValue readBack(const QByteArray& array)
{
    return QJsonDocument::fromJson(array).array().at(0);
}

}  // namespace

class TestJson : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nestingAndCommas_data();
    void nestingAndCommas();
    void stringsReadBack_data();
    void stringsReadBack();
    void numbers_data();
    void numbers();
    void everyFiniteNumberReadsBack();
    void noWordForInfinity();
    void integersAreExact();
    void plainReaders_data();
    void plainReaders();
    void firstFaultIsToldWithItsPlace();
};

void TestJson::nestingAndCommas_data()
{
    QTest::addColumn<JsonLayout>("layout");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("compact") << JsonLayout::compact
                             << QByteArray(R"([{},{"a":[1,2],"b":"x","c":"y","d":[]},0.5])");
    QTest::newRow("indented") << JsonLayout::indented << QByteArray(R"([
  {},
  {
    "a": [
      1,
      2
    ],
    "b": "x",
    "c": "y",
    "d": []
  },
  0.5
])");
}

void TestJson::nestingAndCommas()
{
    QFETCH(const JsonLayout, layout);
    JsonWriter json(layout);
    const auto writeInteger = [&json](qint64 n) { json.integer(n); };
    json.beginArray();
    json.beginObject();
    json.endObject();
    json.beginObject();
    json.key("a"_L1).list(QList<qint64>{1, 2}, writeInteger);
    json.key("b"_L1).text(u"x");
    json.key("c"_L1).plainText("y"_L1);
    json.key("d"_L1).list(QList<qint64>(), writeInteger);
    json.endObject();
    json.number(0.5);
    json.endArray();
    QTEST(json.take(), "expected");
}

void TestJson::stringsReadBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("empty") << QString() << QByteArray(R"([""])");
    QTest::newRow("quote, backslash, slash") << R"("\/)" << QByteArray(R"(["\"\\/"])");
    QTest::newRow("control characters")
        << u"\u0000a\n\u001F\u007F"_s << QByteArray("[\"\\u0000a\\u000a\\u001f\x7f\"]");
    QTest::newRow("beyond the BMP") << u"é👗\u2028"_s << QByteArray("[\"é👗\u2028\"]");
    QTest::newRow("byte-order mark") << u"\uFEFFa"_s << QByteArray(R"(["\ufeffa"])");
    QTest::newRow("low surrogate of a file name") << u"a"_s + QChar(0xDCFF) << QByteArray(R"(["a\udcff"])");
    QTest::newRow("high surrogate alone, at the end")
        << QString(QChar(0xD83D)) << QByteArray(R"(["\ud83d"])");
    QTest::newRow("surrogates in the wrong order")
        << QString(QChar(0xDC57)) + QChar(0xD83D) + u'"' << QByteArray(R"(["\udc57\ud83d\""])");
}

void TestJson::stringsReadBack()
{
    QFETCH(const QString, text);
    const QByteArray bytes = written([&](JsonWriter& json) { json.text(text); });
    QTEST(bytes, "expected");
    QCOMPARE(readBack(bytes).toString(), text);
}

void TestJson::numbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("whole") << 757382400.0 << QByteArray("757382400");
    QTest::newRow("round") << 700000000.0 << QByteArray("700000000");
    QTest::newRow("fraction") << 785374817.123456 << QByteArray("785374817.123456");
    QTest::newRow("negative") << -0.25 << QByteArray("-0.25");
    QTest::newRow("zero") << 0.0 << QByteArray("0");
    QTest::newRow("large") << 1e300 << QByteArray("1e+300");
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min() << QByteArray("5e-324");
}

void TestJson::numbers()
{
    QFETCH(const double, number);
    const QByteArray bytes = written([&](JsonWriter& json) { json.number(number); });
    QTEST(bytes.sliced(1, bytes.size() - 2), "expected");
    QCOMPARE(readBack(bytes).toDouble(), number);
}

void TestJson::everyFiniteNumberReadsBack()
{
    QRandomGenerator random(20260115);
    for (int i = 0; i < 20'000; ++i) {
        const bool ordinaryDate = i % 2 == 0;
        const double number =
            ordinaryDate ? random.generateDouble() * 1.6e9 - 4e8 : std::bit_cast<double>(random.generate64());
        if (!std::isfinite(number))
            continue;
        const QByteArray bytes = written([&](JsonWriter& json) { json.number(number); });
        JsonFault fault;
        const std::optional<double> back = readJsonNumber(readBack(bytes), fault);
        QVERIFY2(back && *back == number, bytes.constData());
    }
}

void TestJson::noWordForInfinity()
{
    for (const double number : {std::numeric_limits<double>::infinity(), std::nan("")})
        QVERIFY(written([number](JsonWriter& json) { json.number(number); }).isNull());
}

void TestJson::integersAreExact()
{
    for (const qint64 n : {std::numeric_limits<qint64>::min(), qint64(-1), qint64(0), qint64(1),
                           (qint64(1) << 53) + 1, std::numeric_limits<qint64>::max()}) {
        JsonFault fault;
        QCOMPARE(readJsonInteger(readBack(written([n](JsonWriter& json) { json.integer(n); })), fault), n);
    }
}

void TestJson::plainReaders_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("readAs");  // the types as which the value reads
    QTest::newRow("whole number") << QByteArray("5") << "number integer";
    QTest::newRow("whole with a fraction of nought") << QByteArray("5.0") << "number integer";
    QTest::newRow("nought") << QByteArray("0") << "number integer";
    QTest::newRow("one") << QByteArray("1") << "number integer";
    QTest::newRow("fraction") << QByteArray("1.5") << "number";
    QTest::newRow("beyond 64 bits") << QByteArray("9223372036854775808") << "number";
    QTest::newRow("true") << QByteArray("true") << "";
    QTest::newRow("null") << QByteArray("null") << "";
    QTest::newRow("number as text") << QByteArray(R"("5")") << "text";
    QTest::newRow("object") << QByteArray("{}") << "";
    QTest::newRow("array") << QByteArray("[]") << "array";
    QTest::newRow("id") << QByteArray(R"("0a0B0c0D-0000-4000-8000-00000000000F")") << "text uuid";
    QTest::newRow("null id") << QByteArray(R"("00000000-0000-0000-0000-000000000000")") << "text uuid";
    QTest::newRow("id in braces") << QByteArray(R"("{0a0B0c0D-0000-4000-8000-00000000000F}")") << "text";
    QTest::newRow("id without hyphens") << QByteArray(R"("0a0B0c0D0000400080000000000000F0")") << "text";
    QTest::newRow("id with a letter too far")
        << QByteArray(R"("0a0B0c0D-0000-4000-8000-00000000000G")") << "text";
    QTest::newRow("id with a hyphen out of place")
        << QByteArray(R"("0a0B0c0-D0000-4000-8000-00000000000F")") << "text";
    QTest::newRow("id with full-width digits")
        << QByteArray("\"０a0B0c0D-0000-4000-8000-00000000000F\"") << "text";
}

void TestJson::plainReaders()
{
    QFETCH(const QByteArray, json);
    const QJsonValue value = readBack('[' + json + ']');
    QStringList types;
    const auto tryAs = [&](const auto& read, const char* type) {
        JsonFault fault;
        const bool done = read(value, fault).has_value();
        if (done)
            types.append(QString::fromLatin1(type));
        QCOMPARE(fault.isSet(), !done);
    };
    tryAs(readJsonText, "text");
    tryAs(readJsonNumber, "number");
    tryAs(readJsonInteger, "integer");
    tryAs(readJsonUuid, "uuid");
    tryAs(readJsonArray, "array");
    QTEST(types.join(u' '), "readAs");
}

void TestJson::firstFaultIsToldWithItsPlace()
{
    const auto readInner = [](const QJsonValue& value, JsonFault& fault) -> std::optional<QString> {
        JsonFields fields(value, fault);
        const QString text = fields.text("name"_L1);
        return fields.intact() ? std::optional(text) : std::nullopt;
    };
    const QJsonValue value = readBack(R"([{"list":[{"name":"a"},{"name":7}]}])");
    JsonFault fault;
    JsonFields fields(value, fault);
    QVERIFY(!fields.optional("nothing"_L1, readJsonText));
    QVERIFY(fields.intact());
    QVERIFY(fields.required("list"_L1, listOf(readInner)).isEmpty());
    QVERIFY(fields.text("nothing"_L1).isEmpty());
    QCOMPARE(fault.message(), u".list[1].name is geen tekst"_s);
}

MORVAK_TEST(TestJson);
#include "test_json.moc"
