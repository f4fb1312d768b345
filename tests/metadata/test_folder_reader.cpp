#include "FakeTool.h"
#include "SamplePhotos.h"
#include "metadata/ExifToolService.h"
#include "metadata/NameBatches.h"
#include "platform/FileName.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <future>

#include <unistd.h>

using namespace std::chrono_literals;
using namespace morvak;
using morvak::test::writeFile;
using Rows = QList<SubjectAndDate>;

namespace {

SubjectAndDate row(const char* name, const char* subject, const char* date)
{
    return {QString::fromUtf8(name), QString::fromUtf8(subject), QString::fromUtf8(date)};
}

std::future<FolderMetadata> startReading(ExifToolService& service, const QString& folder,
                                         const ReadingControl& control = {})
{
    return std::async(std::launch::async, [&service, folder, control] {
        return service.readSubjectsAndDates(folder, {QStringLiteral("jpg"), QStringLiteral("cr3")}, control);
    });
}

Rows read(ExifToolService& service, const QString& folder)
{
    return startReading(service, folder).get().rows;
}

QStringList namesOf(const Rows& rows)
{
    QStringList names;
    for (const SubjectAndDate& each : rows)
        names.append(each.fileName);
    return names;
}

/// A tool that is the shell script `body`, which may note what happens in the file $seen.
ExifToolConfig scriptTool(const QTemporaryDir& folder, const QByteArray& body)
{
    const QString path = folder.filePath(QStringLiteral("tool"));
    writeFile(path, "#!/bin/sh\nseen=\"" + folder.filePath(QStringLiteral("seen")).toUtf8() + "\"\n" + body);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    ExifToolConfig config;
    config.findTool = [path] { return path; };
    return config;
}

/// How often that tool was run.
qsizetype runsOf(const QTemporaryDir& tools)
{
    QFile seen(tools.filePath(QStringLiteral("seen")));
    return seen.open(QIODevice::ReadOnly) ? seen.readAll().count("run") : 0;
}

/// A tool that prints a row for each photo, the last one first, after `before`, which has a photo in $f.
QByteArray rowForEach(const QByteArray& before = {})
{
    return "echo run >> \"$seen\"; rows=\nfor f in \"$@\"; do case $f in ./*) " + before +
           "\nrows=\"${f#./}\tx\t-\n$rows\";; esac; done; printf %b \"$rows\"\n";
}

}  // namespace

class TestFolderReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { QCOMPARE(test::childProcesses(), QList<int>()); }

    void understandsRows_data();
    void understandsRows();
    void readsTheRegularPhotosOfAFolder();
    void noConfigFileOfTheFolderRuns();
    void runsTheToolOnlyForPhotos();
    void aToolThatIsNoUseGivesNothing_data();
    void aToolThatIsNoUseGivesNothing();
    void namesGoInBatches_data();
    void namesGoInBatches();
    void aFolderIsReadInRuns();
    void runsThatFailLeaveTheOthers_data();
    void runsThatFailLeaveTheOthers();
    void canBeGivenUpBetweenRuns();
    void quitEndsARun();

private:
    void addPhotos(const char* names) const
    {
        for (const QByteArray& name : QByteArray(names).split(' '))
            addPhoto(QString::fromLatin1(name));
    }
    void addPhoto(const QString& name) const { writeFile(m_folder->filePath(name), test::jpegPhoto(16)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFolderReader::understandsRows_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<std::optional<Rows>>("expected");
    const auto rows = [](const char* what, const QByteArray& output, const std::optional<Rows>& expected) {
        QTest::newRow(what) << output << expected;
    };
    rows("nothing", "", Rows{});
    rows("three fields", "a\tSet 1, é\t2026:01:02 03:04:05\nb\t-\t-\n",
         Rows{row("a", "Set 1, é", "2026:01:02 03:04:05"), row("b", "-", "-")});
    rows("two fields", "a\tx\n", Rows{row("a", "x", "")});
    rows("empty fields and a fourth", "a\t\t\t\tz\n", Rows{row("a", "", "")});
    rows("nothing is trimmed", "a\t x \t \n", Rows{row("a", " x ", " ")});
    rows("lines that are no rows", "\na\n\n======== a\nb\tx\n", Rows{row("b", "x", "")});
    rows("photos nobody asked about", "c\tx\t-\n a\tx\t-\nA\tx\t-\n", Rows{});
    rows("a second row of the same photo", "a\tx\t-\na\ty\t-\n", Rows{row("a", "x", "-")});
    rows("cut off", "a\tx\t-\nb\tSet 12, No", Rows{row("a", "x", "-")});
    rows("other line breaks belong to the value", "a\tx\r\xe2\x80\xa8\ty\n",
         Rows{row("a", "x\r\xe2\x80\xa8", "y")});
    rows("no UTF-8", "a\tx\t-\nb\t\xff\t-\n", std::nullopt);
}

void TestFolderReader::understandsRows()
{
    QFETCH(QByteArray, output);
    QFETCH(std::optional<Rows>, expected);
    QVERIFY(folderRows(output, {QStringLiteral("a"), QStringLiteral("b")}) == expected);
}

/// No name is an option or gets the row of another; one that is printed changed is left out.
void TestFolderReader::readsTheRegularPhotosOfAFolder()
{
    const QString folder = m_folder->filePath(QStringLiteral("line\nbreak"));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/folder.jpg")));
    const auto path = [&folder](const QString& name) { return folder + u'/' + name; };
    QStringList plain = {QStringLiteral("$(touch ran).jpg"), QStringLiteral("%d%f.JPG"),
                         QStringLiteral("-Comment=x.jpg"),   QStringLiteral("-all=.jpg"),
                         QStringLiteral("@arg.jpg"),         QStringLiteral("a.b.jpg"),
                         QStringLiteral("a\u2028b.jpg"),     QStringLiteral(".hidden.jpg")};
    for (const QString& name : plain + QStringList{QStringLiteral("a\tb.jpg"), QStringLiteral("a\nb.jpg"),
                                                   QStringLiteral("a\u007fb.jpg"), QStringLiteral("a.tif")})
        writeFile(path(name), test::jpegPhoto(16));
    writeFile(path(QStringLiteral("text.cr3")), "no photo");
    QVERIFY(QFile::link(path(plain.first()), path(QStringLiteral("link.jpg"))));
    const QByteArray odd = encodeFileName(path(decodeFileName("bad\xff.jpg")));
    QCOMPARE(::link(encodeFileName(path(plain.first())).constData(), odd.constData()), 0);
    QCOMPARE(QProcess::execute(
                 QStringLiteral("/usr/bin/exiftool"),
                 {QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                  QStringLiteral("-XMP:Subject=Set 1, Noord"), QStringLiteral("-XMP:Subject=tab\there"),
                  QStringLiteral("-DateTimeOriginal=2026:01:02 03:04:05"), path(QStringLiteral("a.b.jpg"))}),
             0);
    ExifToolService service;
    const FolderMetadata metadata = startReading(service, folder).get();
    const Rows& rows = metadata.rows;
    QVERIFY(rows.contains(row("a.b.jpg", "Set 1, Noord, tab.here", "2026:01:02 03:04:05")));
    QVERIFY(rows.contains(row("text.cr3", "-", "-")));
    plain.append(QStringLiteral("text.cr3"));
    plain.sort();
    QCOMPARE(namesOf(rows), plain);
    QCOMPARE(metadata.unsendable, 4);
    QCOMPARE(metadata.failed, 0);
    QVERIFY(!QFile::exists(path(QStringLiteral("ran"))));
    QCOMPARE(::remove(odd.constData()), 0);
}

void TestFolderReader::noConfigFileOfTheFolderRuns()
{
    addPhoto(QStringLiteral("a.jpg"));
    writeFile(m_folder->filePath(QStringLiteral(".ExifTool_config")), "open(F, '>', 'ran'); 1;");
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", ".");
    ExifToolService service;
    const Rows rows = read(service, m_folder->path());
    qputenv("HOME", home);
    QCOMPARE(rows.size(), 1);
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("ran"))));
}

void TestFolderReader::runsTheToolOnlyForPhotos()
{
    const QTemporaryDir tools;
    ExifToolService service(scriptTool(tools, "pwd > \"$seen\"; printf '%s\\n' \"$@\" >> \"$seen\"\n"));
    addPhoto(QStringLiteral("a.png"));
    for (const QString& folder : {m_folder->path(), m_folder->filePath(QStringLiteral("absent"))})
        QVERIFY(read(service, folder).isEmpty());
    QVERIFY(!QFile::exists(tools.filePath(QStringLiteral("seen"))));
    addPhoto(QStringLiteral("-a.CR3"));
    QVERIFY(read(service, m_folder->path()).isEmpty());
    QFile seen(tools.filePath(QStringLiteral("seen")));
    QVERIFY(seen.open(QIODevice::ReadOnly));
    QCOMPARE(seen.readAll(),
             m_folder->path().toUtf8() + "\n-T\n-FileName\n-Subject\n-DateTimeOriginal\n./-a.CR3\n");
}

void TestFolderReader::aToolThatIsNoUseGivesNothing_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("no UTF-8") << QByteArray("printf 'a.jpg\\tx\\t-\\nb.jpg\\t\\377\\t-\\n'\n");
    QTest::newRow("never answers") << QByteArray("printf 'a.jpg\\tx\\t-\\n'; exec sleep 600\n");
    QTest::newRow("prints nothing") << QByteArray("exit 1\n");
    QTest::newRow("other photos") << QByteArray("printf 'z.jpg\\tx\\t-\\n'\n");
}

void TestFolderReader::aToolThatIsNoUseGivesNothing()
{
    QFETCH(QByteArray, script);
    addPhoto(QStringLiteral("a.jpg"));
    const QTemporaryDir tools;
    ExifToolConfig config = scriptTool(tools, script);
    config.folder.answer = 500ms;
    ExifToolService service(config);
    QVERIFY(read(service, m_folder->path()).isEmpty());
    QCOMPARE(test::childProcesses(), QList<int>());
    QVERIFY(QFile::remove(config.findTool()));
    QVERIFY(read(service, m_folder->path()).isEmpty());
}

void TestFolderReader::namesGoInBatches_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<int>("mostBytes");
    QTest::addColumn<QString>("batches");
    QTest::newRow("none") << QString() << 1000 << QString();
    QTest::newRow("three at most") << "a b c d e f g" << 1000 << "a b c|d e f|g";
    QTest::newRow("just full") << "a b c d e f" << 1000 << "a b c|d e f";
    // With its end and its pointer a name of one letter takes 10 bytes.
    QTest::newRow("two have room") << "a b c d" << 20 << "a b|c d";
    QTest::newRow("bytes, not letters") << "é é a" << 21 << "é|é a";
    QTest::newRow("too long for any room") << "a longer b" << 10 << "a|longer|b";
}

void TestFolderReader::namesGoInBatches()
{
    QFETCH(const QString, names);
    QFETCH(const int, mostBytes);
    QStringList batches;
    for (const QStringList& batch : nameBatches(names.split(u' ', Qt::SkipEmptyParts), 3, mostBytes))
        batches.append(batch.join(u' '));
    QTEST(batches.join(u'|'), "batches");
}

void TestFolderReader::aFolderIsReadInRuns()
{
    addPhotos("c.jpg a.jpg e.CR3 b.jpg d.jpg");
    const QTemporaryDir tools;
    ExifToolConfig config = scriptTool(tools, rowForEach());
    config.folder.names = 2;
    ExifToolService service(config);
    QList<std::pair<qsizetype, qsizetype>> progress;
    const auto note = [&progress](qsizetype done, qsizetype total) { progress.append({done, total}); };
    const FolderMetadata metadata = startReading(service, m_folder->path(), {note, {}}).get();
    QCOMPARE(namesOf(metadata.rows).join(u' '), QStringLiteral("a.jpg b.jpg c.jpg d.jpg e.CR3"));
    QCOMPARE(metadata.total(), 5);
    QCOMPARE(progress, (QList<std::pair<qsizetype, qsizetype>>{{0, 5}, {2, 5}, {4, 5}, {5, 5}}));
    QCOMPARE(runsOf(tools), 3);
}

void TestFolderReader::runsThatFailLeaveTheOthers_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QString>("read");
    QTest::addColumn<int>("runs");
    const auto row = [](const char* what, const QByteArray& photos, const QByteArray& fault, const char* read,
                        int runs) {
        QTest::newRow(what) << "case $f in " + photos + ") " + fault + ";; esac" << QString::fromLatin1(read)
                            << runs;
    };
    row("hangs once", "./b*", "exec sleep 600", "a1.jpg a2.jpg c1.jpg c2.jpg d1.jpg d2.jpg", 4);
    row("prints no UTF-8 once", "./b*", "printf '\\377'; exit", "a1.jpg a2.jpg c1.jpg c2.jpg d1.jpg d2.jpg",
        4);
    row("fails now and then", "./[ac]*", "printf '\\377'; exit", "b1.jpg b2.jpg d1.jpg d2.jpg", 4);
    row("fails twice in a row", "./[bc]*", "printf '\\377'; exit", "a1.jpg a2.jpg", 3);
}

void TestFolderReader::runsThatFailLeaveTheOthers()
{
    QFETCH(const QByteArray, fault);
    QFETCH(const QString, read);
    QFETCH(const int, runs);
    addPhotos("a1.jpg a2.jpg b1.jpg b2.jpg c1.jpg c2.jpg d1.jpg d2.jpg");
    const QTemporaryDir tools;
    ExifToolConfig config = scriptTool(tools, rowForEach(fault));
    config.folder.names = 2;
    config.folder.answer = 4s;
    ExifToolService service(config);
    const FolderMetadata metadata = startReading(service, m_folder->path()).get();
    QCOMPARE(namesOf(metadata.rows).join(u' '), read);
    QCOMPARE(metadata.failed, 8 - metadata.rows.size());
    QCOMPARE(runsOf(tools), runs);
}

void TestFolderReader::canBeGivenUpBetweenRuns()
{
    addPhotos("a.jpg b.jpg c.jpg");
    const QTemporaryDir tools;
    ExifToolConfig config = scriptTool(tools, rowForEach());
    config.folder.names = 1;
    ExifToolService service(config);
    std::stop_source stop;
    const auto stopAtTwo = [&stop](qsizetype done, qsizetype) {
        if (done == 2)
            stop.request_stop();
    };
    QCOMPARE(startReading(service, m_folder->path(), {stopAtTwo, stop.get_token()}).get().rows.size(), 2);
}

void TestFolderReader::quitEndsARun()
{
    addPhoto(QStringLiteral("a.jpg"));
    const QTemporaryDir tools;
    auto service = std::make_unique<ExifToolService>(scriptTool(tools, ": > \"$seen\"; exec sleep 600\n"));
    std::future<FolderMetadata> reading = startReading(*service, m_folder->path());
    QTRY_VERIFY(QFile::exists(tools.filePath(QStringLiteral("seen"))));
    service.reset();
    QCOMPARE(reading.get().total(), 0);
}

MORVAK_TEST(TestFolderReader);
#include "test_folder_reader.moc"
