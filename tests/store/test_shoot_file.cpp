#include "RandomShoot.h"
#include "model/DateForm.h"
#include "store/ShootFile.h"
#include "support/TestMain.h"
#include "text/ImportText.h"
#include "text/JsonWriter.h"

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

/// Exactly as a shoot file is written.
const QByteArray file = R"({
  "activationLog": [
    {
      "activatedAt": "2025-01-01T00:00:01Z",
      "setId": "0A0B0C0D-0000-4000-8000-000000000002"
    }
  ],
  "client": "C",
  "date": "2025-01-01T00:00:00Z",
  "id": "0A0B0C0D-0000-4000-8000-000000000001",
  "location": "",
  "name": "Look\udcffbook",
  "sets": [
    {
      "brand": "Noord",
      "email": "a@b",
      "id": "0A0B0C0D-0000-4000-8000-000000000002",
      "items": [
        {
          "color": "navy",
          "id": "0A0B0C0D-0000-4000-8000-000000000003",
          "name": "Chino"
        }
      ],
      "location": "S",
      "model": "Anna",
      "setNumber": "12",
      "taggedCount": 3,
      "timestamp": "2025-11-21T01:46:57Z"
    }
  ],
  "watchFolderPath": "/p"
})";

QByteArray written(Timestamp date)
{
    JsonWriter json;
    isoDates.write(json, date);
    return json.take();
}

}  // namespace

class TestShootFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writtenForm();
    void refused_data();
    void refused();
    void anyShootReadsBack();
    void whatCannotBeReadBackIsNotWritten();
    void dates_data();
    void dates();
    void datesWithoutText();
};

void TestShootFile::writtenForm()
{
    JsonFault fault;
    std::optional<Shoot> shoot = decodeShootFile(file, fault);
    QVERIFY2(shoot, qPrintable(fault.message()));
    QCOMPARE(shoot->date.seconds, 757382400.0);
    shoot->date.seconds += 0.999;
    QCOMPARE(encodeShootFile(*shoot), file);
}

void TestShootFile::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QByteArray& bytes, const char* fault) {
        QTest::newRow(name) << bytes << fault;
    };
    row("list of shoots", '[' + file + ']', "is geen object");
    row("too long", QByteArray(mostImportedBytes + 1, ' '), "te groot");
    row("date as the store has it", with(file, R"("2025-01-01T00:00:00Z")", "757382400"),
        ".date is geen tekst");
    row("date with a fraction", with(file, "46:57Z", "46:57.1Z"), ".sets[0].timestamp is geen datum");
    row("date of the log", with(file, "00:01Z", "00:01"), ".activationLog[0].activatedAt is geen datum");
    row("log entry without a set", with(file, R"("setId")", R"("set")"), ".activationLog[0].setId ontbreekt");
}

void TestShootFile::refused()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, fault);
    JsonFault told;
    QVERIFY(!decodeShootFile(bytes, told));
    QVERIFY2(told.message().startsWith(fault), qPrintable(told.message()));
}

void TestShootFile::anyShootReadsBack()
{
    QRandomGenerator random(14);
    for (int i = 0; i < 300; ++i) {
        const QByteArray bytes = encodeShootFile(randomShoot(random)).value_or(QByteArray());
        JsonFault fault;
        const std::optional<Shoot> back = decodeShootFile(bytes, fault);
        QVERIFY2(back, qPrintable(fault.message()));
        QCOMPARE(encodeShootFile(*back), bytes);
    }
}

void TestShootFile::whatCannotBeReadBackIsNotWritten()
{
    Shoot shoot;
    shoot.sets.append(SetData());
    shoot.sets.first().timestamp.seconds = 1e300;
    QVERIFY(!encodeShootFile(shoot));
    shoot.sets.first().timestamp.seconds = 0;
    QVERIFY(encodeShootFile(shoot));
    shoot.name = QString(mostImportedBytes, u'x');
    QVERIFY(!encodeShootFile(shoot));
}

void TestShootFile::dates_data()
{
    QTest::addColumn<double>("seconds");  // NaN for what is no date
    const auto row = [](const char* text, double seconds) { QTest::newRow(text) << seconds; };
    row("2001-01-01T00:00:00Z", 0);
    row("2025-01-01T00:00:00Z", 757382400);
    row("2025-01-01T01:30:00+01:30", 757382400);
    row("2024-12-31T00:01:00-23:59", 757382400);
    row("2000-12-31T23:59:59-00:00", -1);
    row("2024-02-29T12:00:00Z", 730900800);
    row("0000-01-01T00:00:00Z", -63145526400);
    row("9999-12-31T23:59:59Z", 252423993599);
    const QByteArray noDates =
        "|2025-01-01|2025-01-01T00:00:00|2025-01-01T00:00:00.5Z|2025-01-01T00:00:00z|"
        "2025-01-01t00:00:00Z|2025-01-01 00:00:00Z|2025-01-01T00:00:00Z | 2025-01-01T00:00:00Z|"
        "2025-02-29T00:00:00Z|2025-04-31T00:00:00Z|2025-13-01T00:00:00Z|2025-00-01T00:00:00Z|"
        "2025-01-00T00:00:00Z|2025-01-01T24:00:00Z|2025-01-01T00:60:00Z|2016-12-31T23:59:60Z|"
        "2025-01-01T00:00:00+24:00|2025-01-01T00:00:00+01:60|2025-01-01T00:00:00+0100|"
        "2025-01-01T00:00:00+01|2025-1-01T00:00:00Z|+2025-01-01T00:00:00Z|12025-01-01T00:00:00Z|"
        "-001-01-01T00:00:00Z|２025-01-01T00:00:00Z|0000-01-01T00:00:00+00:01|"
        "9999-12-31T23:59:00-00:01";
    for (const QByteArray& text : noDates.split('|'))
        row(text.constData(), qQNaN());
}

void TestShootFile::dates()
{
    QFETCH(const double, seconds);
    const QByteArray text = QTest::currentDataTag();
    JsonFault fault;
    const auto date = isoDates.read(QString::fromUtf8(text), fault);
    QCOMPARE(date.has_value(), !qIsNaN(seconds));
    QCOMPARE(fault.isSet(), !date.has_value());
    if (date)
        QCOMPARE(date->seconds, seconds);
    if (date && text.endsWith('Z')) {
        for (const double moment : {seconds, seconds + 0.9999})
            QCOMPARE(written({moment}), '"' + text + '"');
    }
}

void TestShootFile::datesWithoutText()
{
    for (const double seconds : {-63145526400.1, 252423993600.0, 1e300, -1e300, qQNaN(), qInf()})
        QVERIFY(written({seconds}).isNull());
}

MORVAK_TEST(TestShootFile);
#include "test_shoot_file.moc"
