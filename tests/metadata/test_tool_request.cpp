#include "SamplePhotos.h"
#include "metadata/TaggingRequest.h"
#include "metadata/ToolRequest.h"
#include "platform/FileName.h"
#include "support/TestMain.h"

#include <QRegularExpression>

using morvak::requestBytes;
using morvak::SetData;
using morvak::SetItem;
using morvak::taggingOptions;

class TestToolRequest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersHaveAtLeastSixDigits();
    void keepsEachOptionOnItsLine_data();
    void keepsEachOptionOnItsLine();
    void sendsOnlyPathsThatCannotBeMistaken_data();
    void sendsOnlyPathsThatCannotBeMistaken();
    void tagsInOrder();
    void leavesOutWhatIsEmpty();
};

void TestToolRequest::numbersHaveAtLeastSixDigits()
{
    QCOMPARE(*requestBytes({QStringLiteral("-m")}, QStringLiteral("/p/a.CR3"), 7),
             QByteArray("-m\n/p/a.CR3\n-execute000007\n"));
    QCOMPARE(morvak::readyMarker(7), QByteArray("{ready000007}"));
    QCOMPARE(morvak::readyMarker(1'000'000), QByteArray("{ready1000000}"));
}

void TestToolRequest::keepsEachOptionOnItsLine_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](const char* name, const QString& option, const QByteArray& line) {
        QTest::newRow(name) << option << line;
    };
    row("every kind of line break", QStringLiteral("-XMP:Title=a\r\nb\rc\nd\n\re"), "-XMP:Title=a b c d  e");
    row("an argument smuggled in", QStringLiteral("-XMP:Title=x\n-FileName=/tmp/y"),
        "-XMP:Title=x -FileName=/tmp/y");
    row("a marker smuggled in", QStringLiteral("-XMP:Title=x\n-execute000009\n"),
        "-XMP:Title=x -execute000009 ");
    row("NUL", QStringLiteral("-XMP:Title=a\r") + QChar(u'\0') + QStringLiteral("\nb"), "-XMP:Title=a b");
    row("NUL alone", QStringLiteral("-XMP:Title=a") + QChar(u'\0') + u'b', "-XMP:Title=ab");
    row("pairs stay, lone surrogates do not",
        QStringLiteral("-XMP:Title=\U0001F600") + QChar(0xD800) + u'x' + QChar(0xDC80) + QChar(0xDBFF),
        "-XMP:Title=\xF0\x9F\x98\x80\xEF\xBF\xBDx\xEF\xBF\xBD\xEF\xBF\xBD");
    row("a leading blank, of which the tool drops one", QStringLiteral("-XMP-dc:Title= a= b"),
        "-XMP-dc:Title=  a= b");
    row("a leading line break", QStringLiteral("-XMP:Title=\na"), "-XMP:Title=  a");
    row("other white space as it is", QStringLiteral("-XMP:Title=\ta \v "), "-XMP:Title=\ta \v ");
}

void TestToolRequest::keepsEachOptionOnItsLine()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, line);
    QCOMPARE(*requestBytes({option}, QStringLiteral("/a"), 1), line + "\n/a\n-execute000001\n");
}

void TestToolRequest::sendsOnlyPathsThatCannotBeMistaken_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("plain") << QStringLiteral("/a/b.jpg") << true;
    QTest::newRow("blanks, quotes, an option's look") << QStringLiteral("/-a/ \"@#%$|.jpg ") << true;
    QTest::newRow("bytes that are no UTF-8") << morvak::decodeFileName("/a\xff.jpg") << true;
    QTest::newRow("relative") << QStringLiteral("a.jpg") << false;
    QTest::newRow("an option") << QStringLiteral("-all=") << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("LF") << QStringLiteral("/a\n-all=.jpg") << false;
    QTest::newRow("CR at the end") << QStringLiteral("/a.jpg\r") << false;
    QTest::newRow("NUL") << QString(QStringLiteral("/a") + QChar(u'\0') + QStringLiteral(".jpg")) << false;
}

void TestToolRequest::sendsOnlyPathsThatCannotBeMistaken()
{
    QFETCH(QString, path);
    QFETCH(bool, accepted);
    const std::optional<QByteArray> bytes = requestBytes({QStringLiteral("-m")}, path, 1);
    QCOMPARE(bytes.has_value(), accepted);
    if (accepted)
        QCOMPARE(*bytes, "-m\n" + morvak::encodeFileName(path) + "\n-execute000001\n");
}

void TestToolRequest::tagsInOrder()
{
    const SetData set = morvak::test::fullSet();
    const QString setText = QStringLiteral(
        "SET:12 | BRAND:Noord | ITEM:Overshirt/navy | ITEM:Chino | MODEL:Anna | LOCATION:Studio 2");
    const QStringList expected = {
        QStringLiteral("-m"),
        QStringLiteral("-IPTC:Headline=Set 12 — Noord"),
        QStringLiteral("-IPTC:Caption-Abstract=Overshirt navy, Chino"),
        QStringLiteral("-IPTC:ObjectName=Set 12 — Noord"),
        QStringLiteral("-XMP:Title=Set 12 — Noord"),
        QStringLiteral("-IPTC:Keywords=Set 12"),
        QStringLiteral("-IPTC:Keywords=Noord"),
        QStringLiteral("-IPTC:Keywords=Overshirt"),
        QStringLiteral("-IPTC:Keywords=navy"),
        QStringLiteral("-IPTC:Keywords=Chino"),
        QStringLiteral("-IPTC:By-line=Anna"),
        QStringLiteral("-XMP-dc:Creator=Anna"),
        QStringLiteral("-IPTC:City=Studio 2"),
        QStringLiteral("-XMP-photoshop:City=Studio 2"),
        QStringLiteral("-IPTC:TransmissionReference=Lente"),
        QStringLiteral("-XMP-photoshop:TransmissionReference=Lente"),
        QStringLiteral("-IPTC:SpecialInstructions=") + setText,
        QStringLiteral("-XMP-photoshop:Instructions=") + setText,
        QStringLiteral("-XMP:Subject=Set 12, Noord, Overshirt, navy, Chino"),
        QStringLiteral("-XMP:Description=Overshirt navy, Chino"),
        QStringLiteral("-XMP:Headline=Set 12 — Noord"),
        QStringLiteral("-overwrite_original"),
    };
    QCOMPARE(taggingOptions({set, morvak::samples::shootNamed(QStringLiteral("Lente"))}), expected);
}

void TestToolRequest::leavesOutWhatIsEmpty()
{
    const QStringList bare = taggingOptions({{}, {}});
    QCOMPARE(bare.size(), 11);
    QVERIFY(bare.contains(QStringLiteral("-IPTC:Headline=")));
    QVERIFY(bare.contains(QStringLiteral("-XMP:Subject=")));
    QCOMPARE(bare.filter(QRegularExpression(QStringLiteral("Keywords|By-line|Creator|City|Transmission"))),
             QStringList());

    SetData blanks;
    blanks.location = QStringLiteral(" ");
    QVERIFY(taggingOptions({blanks, {}}).contains(QStringLiteral("-IPTC:City= ")));
}

MORVAK_TEST(TestToolRequest);
#include "test_tool_request.moc"
