#include "FakeTool.h"
#include "metadata/ExifToolService.h"
#include "platform/ChildProcess.h"
#include "support/StuckDisk.h"
#include "support/TestMain.h"

#include <QFile>

#include <csignal>
#include <future>

using namespace std::chrono_literals;
using namespace morvak;
using morvak::test::FakeTool;

namespace {

using Kind = ToolAnswer::Kind;

const QStringList previewOptions = {QStringLiteral("-b"), QStringLiteral("-PreviewImage")};

std::future<ToolAnswer> startRead(ExifToolService& service, const QString& path)
{
    return std::async(std::launch::async, [&service, path] { return service.read(previewOptions, path); });
}

Kind readKind(ExifToolService& service, const QString& path)
{
    return startRead(service, path).get().kind;
}

/// What the tool printed.
QByteArray read(ExifToolService& service, const QString& path)
{
    return startRead(service, path).get().printed;
}

}  // namespace

class TestPhotoReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(test::childProcesses(), QList<int>()); }

    void givesThePhotosBytesAsTheyAre();
    void keepsAnswersApartThatComeInPieces();
    void readsTheHeadline_data();
    void readsTheHeadline();
    void runsTheToolOnceWhenTheReaderDies();
    void givesUpOnASilentReader();
    void cutsOffAnAnswerWithoutAnEnd();
    void leavesBehindWhatTheKernelHoldsBack();
    void idleToolThatDiesIsReaped();
    void givesNothingWithoutATool();
    void readsRegularFilesByAbsolutePathsOnly();
    void quitEndsEveryRead();
};

void TestPhotoReader::givesThePhotosBytesAsTheyAre()
{
    const FakeTool tool("payload");
    QByteArray payload("\xff\xd8\0{ready000001}\nerror\n", 24);
    while (payload.size() < 3'000'000)
        payload += payload;
    tool.control(QStringLiteral("payload"), payload);
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QVERIFY(read(service, photo) == payload);
    tool.control(QStringLiteral("payload"), "6\n");
    QCOMPARE(read(service, photo), QByteArray("6\n"));

    const QStringList log = tool.log();
    QCOMPARE(log.size(), 3);
    const QString start = QStringLiteral("request -b|-PreviewImage|%1|-execute").arg(photo);
    QVERIFY(log.at(1).startsWith(start) && log.at(2).startsWith(start));
    const qint64 number = log.at(1).sliced(start.size()).toLongLong();
    QVERIFY(number > 1'000'000'000'000'000);
    QCOMPARE(log.at(2).sliced(start.size()).toLongLong(), number + 1);
}

void TestPhotoReader::keepsAnswersApartThatComeInPieces()
{
    const FakeTool tool("pieces");
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    for (int i = 0; i < 20; ++i)
        QCOMPARE(read(service, photo), QByteArray("    1 image files updated\n"));
}

void TestPhotoReader::readsTheHeadline_data()
{
    QTest::addColumn<QByteArray>("printed");
    QTest::addColumn<std::optional<QString>>("headline");
    const auto row = [](const char* what, const QByteArray& printed, const std::optional<QString>& headline) {
        QTest::newRow(what) << printed << headline;
    };
    row("trimmed at both ends", "\xc2\xa0 Set 12 \xe2\x80\x94 Noord \t\xe2\x80\xa8\n",
        QStringLiteral("Set 12 — Noord"));
    row("nothing", "", std::nullopt);
    row("only white space and line breaks", " \t \xc2\x85\r\n\n", std::nullopt);
    row("no UTF-8", "Set 12 \xff\n", std::nullopt);
}

void TestPhotoReader::readsTheHeadline()
{
    QFETCH(QByteArray, printed);
    const FakeTool tool("payload");
    tool.control(QStringLiteral("payload"), printed);
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QTEST(std::async(std::launch::async, [&] { return service.readHeadline(photo); }).get(), "headline");
    QCOMPARE(tool.count(QStringLiteral("request -s3|-XMP-photoshop:Headline|%1|").arg(photo)), 1);
}

void TestPhotoReader::runsTheToolOnceWhenTheReaderDies()
{
    const FakeTool tool("die payload");
    tool.control(QStringLiteral("payload"), "from the reader");
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QCOMPARE(read(service, photo), QByteArray("from a run of its own"));
    QVERIFY(tool.log().contains(QStringLiteral("one-shot -b -PreviewImage ") + photo));
    QCOMPARE(read(service, photo), QByteArray("from the reader"));
    QCOMPARE(tool.count(QStringLiteral("one-shot")), 1);
}

void TestPhotoReader::givesUpOnASilentReader()
{
    const FakeTool tool("silent garbage payload");
    tool.control(QStringLiteral("payload"), "from the reader");
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QCOMPARE(readKind(service, photo), Kind::Late);
    QCOMPARE(readKind(service, photo), Kind::Late);
    QCOMPARE(read(service, photo), QByteArray("from the reader"));
    QCOMPARE(tool.count(QStringLiteral("one-shot")), 0);
}

void TestPhotoReader::cutsOffAnAnswerWithoutAnEnd()
{
    const FakeTool tool("flood payload");
    tool.control(QStringLiteral("payload"), "from the reader");
    ExifToolConfig config = tool.config();
    config.reader.answer = 10min;
    ExifToolService service(config);
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QCOMPARE(readKind(service, photo), Kind::Late);
    const qsizetype megabytes = tool.count(QStringLiteral("flooded"));
    QVERIFY2(megabytes >= 64 && megabytes <= 66, qPrintable(QString::number(megabytes)));
    QCOMPARE(read(service, photo), QByteArray("from the reader"));
}

/// A tool that even SIGKILL does not end keeps nobody from the next answer, and is reaped when it ends.
void TestPhotoReader::leavesBehindWhatTheKernelHoldsBack()
{
    const FakeTool tool("opens");
    ExifToolService service(tool.config());
    {
        const test::StuckDisk disk;
        if (!disk.isMounted())
            QSKIP("only for who may mount");
        QCOMPARE(readKind(service, disk.photo()), Kind::Late);
        QCOMPARE(read(service, tool.photo(QStringLiteral("a.jpg"))), QByteArray("opened"));
        QCOMPARE(ChildProcess::abandonedCount(), 1);
        // No more than a few of them; then a photo is late at once.
        for (int i = 0; i < 3; ++i)
            QCOMPARE(readKind(service, disk.photo()), Kind::Late);
        QCOMPARE(readKind(service, tool.path(QStringLiteral("a.jpg"))), Kind::Late);
        QCOMPARE(tool.count(QStringLiteral("launch")), 4);
    }
    QTRY_COMPARE(ChildProcess::abandonedCount(), 0);
    QCOMPARE(read(service, tool.path(QStringLiteral("a.jpg"))), QByteArray("opened"));
    service.terminateForAppQuit();
}

void TestPhotoReader::idleToolThatDiesIsReaped()
{
    const FakeTool tool("payload");
    tool.control(QStringLiteral("payload"), "from the reader");
    ExifToolService service(tool.config());
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QCOMPARE(read(service, photo), QByteArray("from the reader"));
    const QList<int> idle = test::childProcesses();
    QCOMPARE(idle.size(), 1);
    ::kill(idle.first(), SIGKILL);
    QTRY_COMPARE(test::childProcesses(), QList<int>());
    QCOMPARE(read(service, photo), QByteArray("from the reader"));
    QCOMPARE(tool.count(QStringLiteral("launch")), 2);
    QCOMPARE(tool.count(QStringLiteral("one-shot")), 0);
}

void TestPhotoReader::givesNothingWithoutATool()
{
    const FakeTool tool("payload");
    ExifToolConfig config = tool.config();
    QString place = QStringLiteral("/nowhere/exiftool");
    config.findTool = [&place] { return place; };
    ExifToolService service(config);
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    QCOMPARE(readKind(service, photo), Kind::Unasked);
    place = tool.photo(QStringLiteral("not executable"));
    QCOMPARE(readKind(service, photo), Kind::Unasked);
}

void TestPhotoReader::readsRegularFilesByAbsolutePathsOnly()
{
    const FakeTool tool("payload");
    tool.control(QStringLiteral("payload"), "bytes");
    tool.control(QStringLiteral("a\nb.jpg"));
    ExifToolService service(tool.config());
    for (const QString& path : {QStringLiteral("-ver"), QString(), tool.path({}),
                                tool.path(QStringLiteral("a\nb.jpg")), tool.path(QStringLiteral("gone.jpg"))})
        QCOMPARE(readKind(service, path), Kind::Unasked);
    QCOMPARE(tool.log(), QStringList());
}

void TestPhotoReader::quitEndsEveryRead()
{
    const FakeTool tool("silent");
    ExifToolConfig config = tool.config();
    config.reader.answer = 10min;
    config.reader.dropPatience = 10min;
    ExifToolService service(config);
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    std::vector<std::future<ToolAnswer>> reads;
    for (int i = 0; i < 4; ++i)
        reads.push_back(startRead(service, photo));
    QTRY_COMPARE(tool.count(QStringLiteral("request")), 1);
    service.terminateForAppQuit();
    for (std::future<ToolAnswer>& each : reads)
        QCOMPARE(each.get().kind, Kind::Unasked);
    QCOMPARE(readKind(service, photo), Kind::Unasked);
    QCOMPARE(tool.count(QStringLiteral("request")), 1);
}

MORVAK_TEST(TestPhotoReader);
#include "test_photo_reader.moc"
