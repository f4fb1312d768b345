#include "FakeTool.h"
#include "metadata/ExifToolService.h"
#include "platform/FileName.h"
#include "support/CapturedOutput.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>

using namespace std::chrono_literals;
using namespace morvak;
using morvak::test::CapturedOutput;
using morvak::test::FakeTool;

namespace {

Tagging someTagging()
{
    SetData set;
    set.setNumber = QStringLiteral("12");
    return {set, {}};
}

/// Collects completions and checks that they come on the main thread.
class Results {
public:
    ExifToolService::Completion next()
    {
        return [this, index = m_asked++](bool tagged) {
            QCOMPARE(QThread::currentThread(), qApp->thread());
            order.append(index);
            tags.append(tagged);
        };
    }

    QList<int> order;
    QList<bool> tags;

private:
    int m_asked = 0;
};

QList<int> upTo(int count)
{
    QList<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

}  // namespace

class TestPhotoWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(test::childProcesses(), QList<int>()); }

    void tellsWhatItDoes();
    void outlivesFaults_data();
    void outlivesFaults();
    void restartsAtOnceWhenTheToolHasDied();
    void restartsAToolThatWasKilledBetweenRequests();
    void whatTheToolAddsLaterBelongsToNoAnswer();
    void startsAgainAfterAStop_data();
    void startsAgainAfterAStop();
    void answersFalseWithoutATool();
    void leavesOtherFilesAlone_data();
    void leavesOtherFilesAlone();
    void aRetryLooksAtThePhotoAgain();
    void removesAStaleTemporaryFile();
    void clearsUpAFolder();
    void quitsUnderLoad_data();
    void quitsUnderLoad();
    void anAnswerWithinTheGraceCounts();
    void nothingIsCalledBackAfterTheEnd();
};

void TestPhotoWriter::tellsWhatItDoes()
{
    const FakeTool tool("ok");
    const CapturedOutput output;
    ExifToolService service(tool.config());
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    service.writeMetadata(tool.photo(QStringLiteral("b.jpg")), someTagging(), results.next());
    service.stop();
    QTRY_COMPARE(results.tags, QList<bool>({true, true}));
    QTRY_COMPARE(tool.count(QStringLiteral("stop")), 1);
    service.terminateForAppQuit();

    const QStringList log = tool.log();
    QCOMPARE(log.size(), 4);
    QVERIFY(log.at(1).startsWith(QStringLiteral("request -m|-IPTC:Headline=Set 12|")));
    QVERIFY(log.at(1).endsWith(
        QStringLiteral("|-overwrite_original|%1|-execute000001").arg(tool.path(QStringLiteral("a.jpg")))));
    QVERIFY(log.at(2).endsWith(QStringLiteral("|%1|-execute000002").arg(tool.path(QStringLiteral("b.jpg")))));
    const QString path = QStringLiteral(FAKE_EXIFTOOL_PATH);
    QStringList lines = output.lines();
    lines.removeIf([](const QString& line) { return line.contains(QStringLiteral("reader")); });
    QCOMPARE(lines.first(6),
             QStringList({QStringLiteral("🔧 ExifTool path: ") + path,
                          QStringLiteral("🔧 PERL5LIB: ") + path.chopped(13) + QStringLiteral("lib"),
                          QStringLiteral("✅ ExifTool started in stay-open mode"),
                          QStringLiteral("✅ Tagged: a.jpg → Set 12"),
                          QStringLiteral("✅ Tagged: b.jpg → Set 12"), QStringLiteral("✅ ExifTool stopped")}));
}

void TestPhotoWriter::outlivesFaults_data()
{
    QTest::addColumn<QByteArray>("behaviours");
    QTest::addColumn<bool>("tagged");
    QTest::addColumn<int>("launches");
    QTest::addColumn<QString>("line");
    const QString timeout =
        QStringLiteral("⏱️ ExifTool timeout waiting for {ready000001} — restarting");
    QTest::newRow("answer in pieces")
        << QByteArray("pieces") << true << 1 << QStringLiteral("✅ Tagged: a.jpg → Set 12");
    QTest::newRow("error") << QByteArray("fail") << false << 1
                           << QStringLiteral(
                                  "❌ Failed to tag: a.jpg —     0 image files updated     1 files weren't "
                                  "updated due to ERRORS {ready000001} ");
    QTest::newRow("silent") << QByteArray("silent ok") << true << 2 << timeout;
    QTest::newRow("garbage") << QByteArray("garbage ok") << true << 2 << timeout;
    QTest::newRow("deaf to everything") << QByteArray("deaf ok") << true << 2 << timeout;
    QTest::newRow("dies") << QByteArray("die ok") << true << 2
                          << QStringLiteral("❌ ExifTool ended before {ready000001}");
    QTest::newRow("dies twice") << QByteArray("die die ok") << false << 2
                                << QStringLiteral("❌ ExifTool ended before {ready000002}");
    QTest::newRow("silent twice") << QByteArray("silent silent ok") << false << 2
                                  << QStringLiteral(
                                         "⏱️ ExifTool timeout waiting for {ready000002} — restarting");
}

void TestPhotoWriter::outlivesFaults()
{
    QFETCH(QByteArray, behaviours);
    QFETCH(int, launches);
    QFETCH(QString, line);
    const FakeTool tool(behaviours);
    const CapturedOutput output;
    ExifToolService service(tool.config());
    Results results;
    const QString photo = tool.photo(QStringLiteral("a.jpg"));
    service.writeMetadata(photo, someTagging(), results.next());
    QTRY_COMPARE_WITH_TIMEOUT(results.tags.size(), 1, 20'000);
    QTEST(results.tags.first(), "tagged");
    QCOMPARE(tool.count(QStringLiteral("launch")), launches);
    QCOMPARE(tool.count(QStringLiteral("overlap")), 0);
    QVERIFY(!QFile::exists(photo + QStringLiteral("_exiftool_tmp")));
    QVERIFY2(output.lines().contains(line), qPrintable(output.lines().join(u'\n')));

    // Whatever happened, the next photo finds a tool that works or fails on its own account.
    service.writeMetadata(tool.photo(QStringLiteral("b.jpg")), someTagging(), results.next());
    QTRY_COMPARE_WITH_TIMEOUT(results.tags.size(), 2, 20'000);
    QCOMPARE(results.tags.last(), !behaviours.endsWith("fail"));
    QCOMPARE(tool.count(QStringLiteral("overlap")), 0);
}

void TestPhotoWriter::restartsAtOnceWhenTheToolHasDied()
{
    const FakeTool tool("die ok");
    ExifToolConfig config = tool.config();
    config.writer.answer = 10min;
    config.writer.dropPatience = 10min;
    ExifToolService service(config);
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags, QList<bool>({true}));
}

void TestPhotoWriter::restartsAToolThatWasKilledBetweenRequests()
{
    const FakeTool tool("ok");
    ExifToolService service(tool.config());
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags.size(), 1);
    const QList<int> children = test::childProcesses();
    QCOMPARE(children.size(), 1);
    ::kill(children.first(), SIGKILL);
    service.writeMetadata(tool.photo(QStringLiteral("b.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags, QList<bool>({true, true}));
    QCOMPARE(tool.count(QStringLiteral("launch")), 2);
}

void TestPhotoWriter::whatTheToolAddsLaterBelongsToNoAnswer()
{
    const FakeTool tool("afterthought");
    ExifToolService service(tool.config());
    Results results;
    for (int request = 1; request <= 3; ++request) {
        service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
        QTRY_COMPARE(results.tags, QList<bool>(request, true));
        tool.control(QStringLiteral("heard%1").arg(request, 6, 10, QLatin1Char('0')));
        QTRY_COMPARE(tool.count(QStringLiteral("afterthought")), request);
    }
}

void TestPhotoWriter::startsAgainAfterAStop_data()
{
    QTest::addColumn<QByteArray>("behaviours");
    QTest::newRow("the tool obeys") << QByteArray("ok");
    QTest::newRow("the tools are deaf") << QByteArray("deaf deaf ok");
}

void TestPhotoWriter::startsAgainAfterAStop()
{
    QFETCH(QByteArray, behaviours);
    const FakeTool tool(behaviours);
    ExifToolConfig config = tool.config();
    config.reader = config.writer;
    ExifToolService service(config);
    service.start();
    service.stop();
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags, QList<bool>({true}));
    QTRY_COMPARE(test::childProcesses().size(), 1);
}

void TestPhotoWriter::answersFalseWithoutATool()
{
    const FakeTool tool("ok");
    const CapturedOutput output;
    ExifToolConfig config = tool.config();
    QString place = QStringLiteral("/nowhere/exiftool");
    config.findTool = [&place] { return place; };
    ExifToolService service(config);
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    QVERIFY(results.tags.isEmpty());
    QTRY_COMPARE(results.tags, QList<bool>({false}));
    QVERIFY(output.lines().contains(QStringLiteral("❌ ExifTool not found at: /nowhere/exiftool")));

    place = tool.photo(QStringLiteral("not executable"));
    service.writeMetadata(tool.path(QStringLiteral("a.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags, QList<bool>({false, false}));
    QVERIFY(output.lines().contains(QStringLiteral("❌ Failed to start ExifTool: Permission denied")));
}

void TestPhotoWriter::leavesOtherFilesAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("symbolic link") << QStringLiteral("link.jpg");
    QTest::newRow("folder") << QStringLiteral("folder.jpg");
    QTest::newRow("nothing there") << QStringLiteral("gone.jpg");
    QTest::newRow("line break") << QStringLiteral("a\nb.jpg");
    QTest::newRow("open for writing") << QStringLiteral("held.jpg");
}

void TestPhotoWriter::leavesOtherFilesAlone()
{
    QFETCH(QString, name);
    const FakeTool tool("ok");
    ExifToolService service(tool.config());
    const QString target = tool.photo(QStringLiteral("target.jpg"));
    QVERIFY(QFile::link(target, tool.path(QStringLiteral("link.jpg"))));
    QVERIFY(QDir().mkdir(tool.path(QStringLiteral("folder.jpg"))));
    tool.control(QStringLiteral("a\nb.jpg"));
    QFile held(tool.photo(QStringLiteral("held.jpg")));
    QVERIFY(held.open(QIODevice::ReadWrite));

    Results results;
    service.writeMetadata(tool.path(name), someTagging(), results.next());
    QDir::setCurrent(tool.path({}));
    service.writeMetadata(QStringLiteral("target.jpg"), someTagging(), results.next());
    QDir::setCurrent(QStringLiteral("/"));
    service.writeMetadata(target, someTagging(), results.next());
    QTRY_COMPARE(results.tags, QList<bool>({false, false, true}));
    QCOMPARE(results.order, upTo(3));
    QCOMPARE(tool.count(QStringLiteral("request")), 1);
}

/// Between the attempts somebody may have opened the photo for writing.
void TestPhotoWriter::aRetryLooksAtThePhotoAgain()
{
    const FakeTool tool("silent ok");
    ExifToolService service(tool.config());
    Results results;
    QFile photo(tool.photo(QStringLiteral("a.jpg")));
    service.writeMetadata(photo.fileName(), someTagging(), results.next());
    QTRY_COMPARE(tool.count(QStringLiteral("request")), 1);
    QVERIFY(photo.open(QIODevice::ReadWrite));
    QTRY_COMPARE(results.tags, QList<bool>({false}));
    QCOMPARE(tool.count(QStringLiteral("request")), 1);
}

void TestPhotoWriter::removesAStaleTemporaryFile()
{
    const FakeTool tool("ok");
    const CapturedOutput output;
    ExifToolService service(tool.config());
    const QString stale = tool.photo(QStringLiteral("a.jpg_exiftool_tmp"));
    QFile inUse(tool.photo(QStringLiteral("b.jpg_exiftool_tmp")));
    QVERIFY(inUse.open(QIODevice::ReadWrite));
    Results results;
    service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    service.writeMetadata(tool.photo(QStringLiteral("b.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags.size(), 2);
    QVERIFY(!QFile::exists(stale));
    QVERIFY(inUse.exists());
    QVERIFY(output.lines().contains(QStringLiteral("🔧 Removed stale a.jpg_exiftool_tmp")));
}

void TestPhotoWriter::clearsUpAFolder()
{
    const FakeTool tool("ok");
    ExifToolService service(tool.config());
    const auto temporaryOf = [&tool](const char* name) {
        return tool.photo(QLatin1String(name) + QStringLiteral("_exiftool_tmp"));
    };
    for (const char* const name : {"stale.jpg", "older.jpg", "inuse.jpg", "photo.jpg"})
        (void)tool.photo(QLatin1String(name));
    const QString stale = temporaryOf("stale.jpg");
    const QString ofNoPhoto = temporaryOf("gone.jpg");
    QFile olderThanItsPhoto(temporaryOf("older.jpg"));
    QVERIFY(olderThanItsPhoto.open(QIODevice::ReadWrite));
    QVERIFY(olderThanItsPhoto.setFileTime(QDateTime::currentDateTime().addSecs(-10),
                                          QFileDevice::FileModificationTime));
    olderThanItsPhoto.close();
    QFile inUse(temporaryOf("inuse.jpg"));
    QVERIFY(inUse.open(QIODevice::ReadWrite));
    Results results;
    service.clearUp(tool.path({}));
    service.writeMetadata(tool.path(QStringLiteral("photo.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.tags.size(), 1);
    QVERIFY(!QFile::exists(stale));
    QVERIFY(QFile::exists(ofNoPhoto) && olderThanItsPhoto.exists() && inUse.exists());
}

void TestPhotoWriter::quitsUnderLoad_data()
{
    QTest::addColumn<QByteArray>("behaviour");
    QTest::newRow("the tool waits") << QByteArray("gated");
    QTest::newRow("the tool is silent") << QByteArray("silent");
    QTest::newRow("the tool is deaf") << QByteArray("deaf");
}

void TestPhotoWriter::quitsUnderLoad()
{
    QFETCH(QByteArray, behaviour);
    constexpr int photos = 50;
    const FakeTool tool(behaviour);
    ExifToolConfig config = tool.config();
    config.writer.answer = 10min;
    config.writer.dropPatience = 10min;
    ExifToolService service(config);
    Results results;
    for (int i = 0; i < photos; ++i)
        service.writeMetadata(tool.photo(QStringLiteral("%1.jpg").arg(i)), someTagging(), results.next());
    QTRY_COMPARE(tool.count(QStringLiteral("request")), 1);

    service.terminateForAppQuit();
    QCOMPARE(test::childProcesses(), QList<int>());
    QVERIFY(!QFile::exists(tool.path(QStringLiteral("0.jpg_exiftool_tmp"))));
    service.writeMetadata(tool.path(QStringLiteral("1.jpg")), someTagging(), results.next());
    QTRY_COMPARE(results.order, upTo(photos + 1));
    QVERIFY(!results.tags.contains(true));
    QCOMPARE(tool.count(QStringLiteral("request")), 1);
}

void TestPhotoWriter::anAnswerWithinTheGraceCounts()
{
    const FakeTool tool("gated");
    ExifToolConfig config = tool.config();
    config.writer.quitGrace = 10min;
    Interrupt quit;
    std::atomic<int> tagged = -1;
    PhotoWriter writer(config.writer, config.findTool, quit);
    writer.write(tool.photo(QStringLiteral("a.jpg")), someTagging(), [&](bool success) { tagged = success; });
    QTRY_COMPARE(tool.count(QStringLiteral("request")), 1);
    quit.raise();
    writer.close();
    tool.control(QStringLiteral("go"));
    writer.wait();
    QCOMPARE(tagged, 1);
    QCOMPARE(tool.log().last(), QStringLiteral("stop"));
}

void TestPhotoWriter::nothingIsCalledBackAfterTheEnd()
{
    const FakeTool tool("ok");
    Results results;
    {
        ExifToolService service(tool.config());
        for (int i = 0; i < 5; ++i)
            service.writeMetadata(tool.photo(QStringLiteral("a.jpg")), someTagging(), results.next());
    }
    QCoreApplication::processEvents();
    QVERIFY(results.tags.isEmpty());
}

MORVAK_TEST(TestPhotoWriter);
#include "test_photo_writer.moc"
