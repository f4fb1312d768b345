#include "FakeTool.h"
#include "SamplePhotos.h"
#include "metadata/ExifToolService.h"
#include "metadata/WrittenTags.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>

#include <csignal>
#include <future>

#include <fcntl.h>
#include <unistd.h>

using namespace morvak;
using morvak::test::writeFile;

namespace {

constexpr int toolTime = 30'000;

QByteArray runTool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral("/usr/bin/exiftool"), arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}

/// The tags that must be found in a photo, without the part of their group ("XMP" for "XMP-dc"), in order.
QStringList keptTags()
{
    QStringList names;
    for (const WrittenTag& tag : writtenTags()) {
        if (tag.isKept)
            names.append(tag.printedName());
    }
    names.sort();
    return names;
}

/// What a program other than Morvak finds in the photo.
QVariantMap tagsOf(const QString& path)
{
    const QByteArray json = runTool({QStringLiteral("-j"), QStringLiteral("-G1"), QStringLiteral("-IPTC:all"),
                                     QStringLiteral("-XMP:all"), path});
    return QJsonDocument::fromJson(json).array().at(0).toObject().toVariantMap();
}

}  // namespace

class TestRealTool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase() { useFreshService(); }

    void everyRowIsReadBack_data();
    void everyRowIsReadBack();
    void valuesAreExact_data();
    void valuesAreExact();
    void namesAreOnlyNames_data();
    void namesAreOnlyNames();
    void emptyValuesRemoveTags();
    void aFailedWriteIsTold();
    void aToolKilledOverARequestCostsNothing();
    void aStoppedToolIsBrokenOffOnQuit();
    void quittingUnderLoadLeavesWholePhotos();
    void noConfigFileOfAFolderRuns_data();
    void noConfigFileOfAFolderRuns();
    void readsWhatThePhotoHolds();

private:
    [[nodiscard]] QString photo(const QString& name) const { return m_folder->filePath(name); }
    [[nodiscard]] QString jpeg(const QString& name = QStringLiteral("a.jpg")) const
    {
        writeFile(photo(name), test::jpegPhoto());
        return photo(name);
    }
    void useFreshService(const ExifToolConfig& config = {});
    [[nodiscard]] bool tag(const QString& path, const SetData& set, const QString& shoot = {});
    [[nodiscard]] QByteArray read(const QStringList& options, const QString& path);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ExifToolService> m_service;
};

void TestRealTool::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    if (!m_service)
        useFreshService();
}

void TestRealTool::cleanup()
{
    for (const QString& name : folderEntries(m_folder->path()).value_or(QStringList()))
        QVERIFY2(!name.endsWith(QStringLiteral("_exiftool_tmp")), qPrintable(name));
}

void TestRealTool::useFreshService(const ExifToolConfig& config)
{
    m_service.reset();
    QCOMPARE(test::childProcesses(), QList<int>());
    m_service = std::make_unique<ExifToolService>(config);
}

bool TestRealTool::tag(const QString& path, const SetData& set, const QString& shoot)
{
    bool result = false;
    QEventLoop loop;
    m_service->writeMetadata(path, {set, samples::shootNamed(shoot)}, [&](bool tagged) {
        result = tagged;
        loop.quit();
    });
    QTimer::singleShot(toolTime, &loop, &QEventLoop::quit);
    loop.exec();
    return result;
}

QByteArray TestRealTool::read(const QStringList& options, const QString& path)
{
    return std::async(std::launch::async, [&] { return m_service->read(options, path).printed; }).get();
}

void TestRealTool::everyRowIsReadBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("JPEG") << QStringLiteral("a.jpg") << test::jpegPhoto();
    QTest::newRow("TIFF") << QStringLiteral("a.tif") << test::tiffPhoto();
    QTest::newRow("TIFF under a raw name") << QStringLiteral("a.dng") << test::tiffPhoto();
}

void TestRealTool::everyRowIsReadBack()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, contents);
    const QString path = photo(name);
    writeFile(path, contents);
    QVERIFY(tag(path, test::fullSet(), QStringLiteral("Lente")));

    const QString headline = QStringLiteral("Set 12 — Noord");
    const QString description = QStringLiteral("Overshirt navy, Chino");
    const QString setText = QStringLiteral(
        "SET:12 | BRAND:Noord | ITEM:Overshirt/navy | ITEM:Chino | MODEL:Anna | LOCATION:Studio 2");
    const QStringList keywords = {QStringLiteral("Set 12"), QStringLiteral("Noord"),
                                  QStringLiteral("Overshirt"), QStringLiteral("navy"),
                                  QStringLiteral("Chino")};
    const QVariantMap expected = {
        {QStringLiteral("IPTC:Headline"), headline},
        {QStringLiteral("IPTC:Caption-Abstract"), description},
        {QStringLiteral("IPTC:ObjectName"), headline},
        {QStringLiteral("IPTC:Keywords"), QVariantList(keywords.begin(), keywords.end())},
        {QStringLiteral("IPTC:By-line"), QStringLiteral("Anna")},
        {QStringLiteral("IPTC:City"), QStringLiteral("Studio 2")},
        {QStringLiteral("IPTC:SpecialInstructions"), setText},
        {QStringLiteral("XMP-dc:Title"), headline},
        {QStringLiteral("XMP-dc:Creator"), QStringLiteral("Anna")},
        {QStringLiteral("XMP-dc:Subject"), keywords.join(QStringLiteral(", "))},
        {QStringLiteral("XMP-dc:Description"), description},
        {QStringLiteral("XMP-photoshop:City"), QStringLiteral("Studio 2")},
        {QStringLiteral("XMP-photoshop:TransmissionReference"), QStringLiteral("Lente")},
        {QStringLiteral("XMP-photoshop:Instructions"), setText},
        {QStringLiteral("XMP-photoshop:Headline"), headline},
    };
    QStringList names =
        expected.keys().replaceInStrings(QRegularExpression(QStringLiteral("-\\w+:")), QStringLiteral(":"));
    names.sort();
    QCOMPARE(names, keptTags());
    const QVariantMap tags = tagsOf(path);
    for (auto row = expected.begin(); row != expected.end(); ++row)
        QCOMPARE(tags.value(row.key()), row.value());
    QCOMPARE(*folderEntries(m_folder->path()), QStringList(name));  // no backup copy, no sidecar
}

void TestRealTool::valuesAreExact_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("stored");
    const auto exact = [](const char* name, const QString& value) { QTest::newRow(name) << value << value; };
    exact("beyond Latin", QStringLiteral("Łódź 日本 😀 é —"));
    exact("option", QStringLiteral("-FileName=x"));
    exact("comment", QStringLiteral("# #[CSTR]a\\n"));
    exact("argument file", QStringLiteral("@/etc/passwd"));
    exact("value from a file", QStringLiteral("<=/etc/passwd"));
    exact("tag copy", QStringLiteral("a<Model b>c += -= ="));
    exact("Perl", QStringLiteral("$HOME ${x;system('id')} `id` %d%f"));
    exact("XML", QStringLiteral("<b attr=\"'\">&amp; & ]]>"));
    exact("back slashes", QStringLiteral("\\n \\ C:\\"));
    exact("blanks at both ends", QStringLiteral("  x  "));
    exact("a single blank", QStringLiteral(" "));
    exact("long", QString(5000, u'x'));
    QTest::newRow("line breaks, a shell command")
        << QStringLiteral("x\n-if\nsystem('touch ran')\r\ny\r-o\rz\n")
        << QStringLiteral("x -if system('touch ran') y -o z ");
    QTest::newRow("a forged marker") << QStringLiteral("x\n-echo1\n{ready000001}\n-execute000001")
                                     << QStringLiteral("x -echo1 {ready000001} -execute000001");
    QTest::newRow("NUL and half a pair") << QString(QStringLiteral("a") + QChar(u'\0') + QChar(0xD800))
                                         << QString(QStringLiteral("a") + QChar::ReplacementCharacter);
}

void TestRealTool::valuesAreExact()
{
    QFETCH(QString, value);
    QFETCH(QString, stored);
    SetData set;
    set.brand = value;
    set.model = value;
    set.location = value;
    const QString path = jpeg();
    QVERIFY(tag(path, set, value));
    const QVariantMap tags = tagsOf(path);
    for (const char* tag : {"dc:Title", "dc:Creator", "dc:Subject", "photoshop:City", "photoshop:Headline",
                            "photoshop:TransmissionReference"})
        QCOMPARE(tags.value(QStringLiteral("XMP-") + QLatin1String(tag)).toString(), stored);
    QCOMPARE(*folderEntries(m_folder->path()), QStringList(QStringLiteral("a.jpg")));
}

void TestRealTool::namesAreOnlyNames_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"-all=.jpg", "--.jpg", "%d%f.jpg", "a b  c.jpg", "end.jpg ", "\"it's\".jpg",
                             "bad\xff.jpg", "#[CSTR]\\n.jpg", "@arg.jpg", "pipe.jpg|", "*?.jpg",
                             "$(touch ran);.jpg", "\xe2\x80\xa8.jpg", "error.jpg"})
        QTest::newRow(name) << QByteArray(name);
}

void TestRealTool::namesAreOnlyNames()
{
    QFETCH(QByteArray, name);
    const QString path = jpeg(decodeFileName(name));
    const QByteArray bystander = test::jpegPhoto();
    writeFile(photo(QStringLiteral("x.jpg")), bystander);
    QVERIFY(tag(path, test::fullSet()));
    QCOMPARE(read({QStringLiteral("-s3"), QStringLiteral("-XMP-dc:Creator")}, path), QByteArray("Anna\n"));
    QStringList entries = *folderEntries(m_folder->path());
    entries.sort();
    QStringList expected = {decodeFileName(name), QStringLiteral("x.jpg")};
    expected.sort();
    QCOMPARE(entries, expected);
    QFile other(photo(QStringLiteral("x.jpg")));
    QVERIFY(other.open(QIODevice::ReadOnly) && other.readAll() == bystander);
    QVERIFY(removeFile(path));  // the temporary folder's own clearing knows only names in UTF-8
}

void TestRealTool::emptyValuesRemoveTags()
{
    const QString path = jpeg();
    QVERIFY(tag(path, test::fullSet()));
    SetData bare;
    bare.brand = QStringLiteral("Zuid");
    QVERIFY(tag(path, bare));
    const QVariantMap tags = tagsOf(path);
    QVERIFY(!tags.contains(QStringLiteral("XMP-dc:Description")));
    QVERIFY(!tags.contains(QStringLiteral("IPTC:Caption-Abstract")));
    QCOMPARE(tags.value(QStringLiteral("IPTC:Keywords")), QVariant(QStringLiteral("Zuid")));
    QCOMPARE(tags.value(QStringLiteral("XMP-dc:Creator")), QVariant(QStringLiteral("Anna")));
}

void TestRealTool::aFailedWriteIsTold()
{
    const QString text = photo(QStringLiteral("text.jpg"));
    writeFile(text, "not a photo");
    QVERIFY(!tag(text, test::fullSet()));
    const QString refused = photo(QStringLiteral("a.3fr"));
    writeFile(refused, test::tiffPhoto());
    QVERIFY(!tag(refused, test::fullSet()));
    QVERIFY(tag(jpeg(), test::fullSet()));
}

void TestRealTool::aToolKilledOverARequestCostsNothing()
{
    useFreshService();
    QVERIFY(tag(jpeg(), test::fullSet()));
    const QList<int> children = test::childProcesses();
    QCOMPARE(children.size(), 1);
    ::kill(children.first(), SIGSTOP);
    const QString path = jpeg(QStringLiteral("b.jpg"));
    std::optional<bool> result;
    m_service->writeMetadata(path, {test::fullSet(), {}}, [&result](bool tagged) { result = tagged; });
    writeFile(path + QStringLiteral("_exiftool_tmp"), "half a photo");
    ::kill(children.first(), SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(result, std::optional(true), toolTime);
    QCOMPARE(tagsOf(path).value(QStringLiteral("XMP-dc:Creator")), QVariant(QStringLiteral("Anna")));
}

/// A tool that hangs in a write gets its second, then the signals; quitting stays within two.
void TestRealTool::aStoppedToolIsBrokenOffOnQuit()
{
    useFreshService();
    QVERIFY(tag(jpeg(), test::fullSet()));
    ::kill(test::childProcesses().first(), SIGSTOP);
    std::optional<bool> result;
    m_service->writeMetadata(jpeg(), {test::fullSet(), {}}, [&result](bool tagged) { result = tagged; });
    QElapsedTimer clock;
    clock.start();
    m_service->terminateForAppQuit();
    QVERIFY(clock.elapsed() < 2'000);
    QTRY_COMPARE(result, std::optional(false));
    useFreshService();
}

void TestRealTool::quittingUnderLoadLeavesWholePhotos()
{
    constexpr int photos = 40;
    const QByteArray contents = test::jpegPhoto(1'500);
    QList<bool> results;
    for (int i = 0; i < photos; ++i) {
        const QString path = photo(QStringLiteral("%1.jpg").arg(i));
        writeFile(path, contents);
        m_service->writeMetadata(path, {test::fullSet(), {}},
                                 [&results](bool tagged) { results.append(tagged); });
    }
    QTRY_VERIFY_WITH_TIMEOUT(results.size() >= 3, toolTime);
    m_service->terminateForAppQuit();
    QCOMPARE(test::childProcesses(), QList<int>());
    QTRY_COMPARE(results.size(), photos);
    for (int i = 0; i < photos; ++i) {
        const QString path = photo(QStringLiteral("%1.jpg").arg(i));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const bool untouched = file.readAll() == contents;
        QVERIFY(untouched || !QImage(path).isNull());
        if (results.at(i))
            QVERIFY(!untouched);
    }
    useFreshService();
}

void TestRealTool::noConfigFileOfAFolderRuns_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("HOME is the working folder") << QByteArray("HOME") << QByteArray(".");
    QTest::newRow("HOME is empty") << QByteArray("HOME") << QByteArray("");
    QTest::newRow("EXIFTOOL_HOME is the working folder") << QByteArray("EXIFTOOL_HOME") << QByteArray(".");
}

void TestRealTool::noConfigFileOfAFolderRuns()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    const QByteArray before = qgetenv(name.constData());
    const QString tool = photo(QStringLiteral("exiftool"));
    QVERIFY(QFile::link(QStringLiteral("/usr/bin/exiftool"), tool));
    const QString ran = photo(QStringLiteral("ran"));
    writeFile(photo(QStringLiteral(".ExifTool_config")), "open(F, '>', '" + ran.toUtf8() + "'); 1;");
    qputenv(name.constData(), value);
    ExifToolConfig config;
    config.findTool = [tool] { return tool; };
    useFreshService(config);
    QVERIFY(tag(jpeg(), test::fullSet()));
    QCOMPARE(read({QStringLiteral("-s3"), QStringLiteral("-XMP-dc:Creator")}, jpeg(QStringLiteral("b.jpg"))),
             QByteArray());
    QVERIFY(!QFile::exists(ran));

    QProcess unprotected;  // the trap is a real one
    unprotected.setWorkingDirectory(m_folder->path());
    unprotected.start(tool, {QStringLiteral("-ver")});
    unprotected.waitForFinished();
    QVERIFY(QFile::exists(ran));
    if (before.isEmpty())
        qunsetenv(name.constData());
    else
        qputenv(name.constData(), before);
    useFreshService();
}

void TestRealTool::readsWhatThePhotoHolds()
{
    const QByteArray preview = test::jpegPhoto(400);
    const QString previewPath = photo(QStringLiteral("preview.jpg"));
    writeFile(previewPath, preview);
    const QString path = jpeg();
    (void)runTool({QStringLiteral("-overwrite_original"), QStringLiteral("-Orientation#=6"),
                   QStringLiteral("-ThumbnailImage<=") + previewPath, path});
    const QStringList thumbnail = {QStringLiteral("-b"), QStringLiteral("-ThumbnailImage")};
    QVERIFY(read(thumbnail, path) == preview);
    QCOMPARE(read({QStringLiteral("-b"), QStringLiteral("-PreviewImage")}, path), QByteArray());
    QCOMPARE(read({QStringLiteral("-Orientation#"), QStringLiteral("-s3")}, path), QByteArray("6\n"));

    for (const int child : test::childProcesses())
        ::kill(child, SIGKILL);
    QVERIFY(read(thumbnail, path) == preview);
    QVERIFY(read(thumbnail, path) == preview);
}

MORVAK_TEST(TestRealTool);
#include "test_real_tool.moc"
