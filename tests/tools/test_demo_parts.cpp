#include "demo/Tether.h"
#include "demo/TextTable.h"
#include "driver/PhotoCheck.h"
#include "sampleshoot/SampleShoot.h"
#include "support/TestMain.h"

#include <QDir>
#include <QJsonArray>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::demo;
using namespace morvak::driver;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What a photo of the first sample set carries when all is well.
PhotoTags rightTags()
{
    const QString setText =
        u"SET:12 | BRAND:Noord | ITEM:Overshirt/marine | ITEM:Chino/zand | MODEL:Anna | LOCATION:Studio 2"_s;
    return {{u"IPTC:Headline"_s, u"Set 12 — Noord"_s},
            {u"IPTC:ObjectName"_s, u"Set 12 — Noord"_s},
            {u"IPTC:Caption-Abstract"_s, u"Overshirt marine, Chino zand"_s},
            {u"IPTC:Keywords"_s,
             QJsonArray{u"Set 12"_s, u"Noord"_s, u"Overshirt"_s, u"marine"_s, u"Chino"_s, u"zand"_s}},
            {u"IPTC:By-line"_s, u"Anna"_s},
            {u"IPTC:City"_s, u"Studio 2"_s},
            {u"IPTC:SpecialInstructions"_s, setText},
            {u"XMP:Headline"_s, u"Set 12 — Noord"_s},
            {u"XMP:Title"_s, u"Set 12 — Noord"_s},
            {u"XMP:Description"_s, u"Overshirt marine, Chino zand"_s},
            {u"XMP:Subject"_s, u"Set 12, Noord, Overshirt, marine, Chino, zand"_s},
            {u"XMP:Creator"_s, u"Anna"_s},
            {u"XMP:City"_s, u"Studio 2"_s},
            {u"XMP:TransmissionReference"_s, 77},  // the tool prints what looks like a number as one
            {u"XMP:Instructions"_s, setText}};
}

}  // namespace

class TestDemoParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyWrongTagIsTold();
    void columnsAlign();
    void photoArrivesWhole_data();
    void photoArrivesWhole();
    void stoppedDeliveryFails();
    void everyWaitEndsWithTheWholeTime();
};

void TestDemoParts::everyWrongTagIsTold()
{
    const Tagging tagging = samples::sampleTagging(u"77"_s);
    QCOMPARE(tagFaults(rightTags(), tagging), QStringList());
    for (const QString& tag : rightTags().keys()) {
        PhotoTags missing = rightTags();
        missing.remove(tag);
        PhotoTags other = rightTags();
        other.insert(tag, QJsonArray{u"something"_s, u"else"_s});
        for (const PhotoTags& tags : {missing, other}) {
            const QStringList faults = tagFaults(tags, tagging);
            QCOMPARE(faults.size(), 1);
            QVERIFY(faults.constFirst().startsWith(tag));
        }
    }
}

void TestDemoParts::columnsAlign()
{
    QCOMPARE(terminalWidth(u"Café"_s), 4);
    QCOMPARE(terminalWidth(u"Cafe\u0301"_s), 4);
    QCOMPARE(terminalWidth(u"日本"_s), 4);
    QCOMPARE(terminalWidth(u"📷"_s), 2);
    QCOMPARE(textTable({u"a"_s, u"b"_s}, {{u"日本"_s, u"1"_s}, {u"xyz"_s, u"2"_s}}),
             u"  a     b\n  ────  ─\n  日本  1\n  xyz   2\n"_s);
}

void TestDemoParts::photoArrivesWhole_data()
{
    QTest::addColumn<bool>("renamed");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("at once") << false << 0;
    QTest::newRow("in pieces") << false << 40;
    QTest::newRow("renamed at the end") << true << 40;
}

void TestDemoParts::photoArrivesWhole()
{
    QFETCH(bool, renamed);
    QFETCH(int, milliseconds);
    const QTemporaryDir root;
    const QDir folder(root.path());
    const QByteArray photo(100'003, 'p');
    Pacer pacer(30s);
    const Delivery delivery = renamed ? Delivery::Renamed : Delivery::Direct;
    QVERIFY(deliver(photo, folder.filePath(u"A.JPG"_s), delivery, std::chrono::milliseconds(milliseconds),
                    pacer));
    QCOMPARE(folder.entryList(QDir::Files), QStringList{u"A.JPG"_s});
    QFile file(folder.filePath(u"A.JPG"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), photo);
    QVERIFY(!deliver("other", folder.filePath(u"A.JPG"_s), delivery, 0ms, pacer));
    QCOMPARE(file.size(), photo.size());
}

void TestDemoParts::stoppedDeliveryFails()
{
    const QTemporaryDir root;
    Pacer pacer(30s);
    QTimer::singleShot(0, &pacer, [&pacer] { pacer.stop(); });
    QVERIFY(!deliver(QByteArray(1000, 'p'), root.filePath(u"A.JPG"_s), Delivery::Renamed, 20s, pacer));
    QVERIFY(!QFile::exists(root.filePath(u"A.JPG"_s)));
}

void TestDemoParts::everyWaitEndsWithTheWholeTime()
{
    // Long enough for a coarse timer, which may fire a little early: a wait that then asked the clock would
    // have no end. Qt makes shorter timers precise.
    for (int i = 0; i < 10; ++i) {
        Pacer pacer(130ms);
        QVERIFY(!pacer.waitUntil([] { return false; }));
        QVERIFY(pacer.isTimeUp());
        QVERIFY(!pacer.pause(1h));
    }
}

MORVAK_TEST(TestDemoParts);

#include "test_demo_parts.moc"
