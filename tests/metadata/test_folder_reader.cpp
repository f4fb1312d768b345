#include "FakeTool.h"
#include "SamplePhotos.h"
#include "metadata/ExifToolService.h"
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

std::future<Rows> startReading(ExifToolService& service, const QString& folder)
{
    return std::async(std::launch::async, [&service, folder] {
        Rows rows = service.readSubjectsAndDates(folder, {QStringLiteral("jpg"), QStringLiteral("cr3")});
        std::sort(rows.begin(), rows.end(),
                  [](const SubjectAndDate& a, const SubjectAndDate& b) { return a.fileName < b.fileName; });
        return rows;
    });
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
    void quitEndsARun();

private:
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
    const Rows rows = startReading(service, folder).get();
    QVERIFY(rows.contains(row("a.b.jpg", "Set 1, Noord, tab.here", "2026:01:02 03:04:05")));
    QVERIFY(rows.contains(row("text.cr3", "-", "-")));
    QStringList names;
    for (const SubjectAndDate& each : rows)
        names.append(each.fileName);
    plain.append(QStringLiteral("text.cr3"));
    plain.sort();
    QCOMPARE(names, plain);
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
    const Rows rows = startReading(service, m_folder->path()).get();
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
        QVERIFY(startReading(service, folder).get().isEmpty());
    QVERIFY(!QFile::exists(tools.filePath(QStringLiteral("seen"))));
    addPhoto(QStringLiteral("-a.CR3"));
    QVERIFY(startReading(service, m_folder->path()).get().isEmpty());
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
    config.folderAnswer = 500ms;
    ExifToolService service(config);
    QVERIFY(startReading(service, m_folder->path()).get().isEmpty());
    QCOMPARE(test::childProcesses(), QList<int>());
    QVERIFY(QFile::remove(config.findTool()));
    QVERIFY(startReading(service, m_folder->path()).get().isEmpty());
}

void TestFolderReader::quitEndsARun()
{
    addPhoto(QStringLiteral("a.jpg"));
    const QTemporaryDir tools;
    auto service = std::make_unique<ExifToolService>(scriptTool(tools, ": > \"$seen\"; exec sleep 600\n"));
    std::future<Rows> rows = startReading(*service, m_folder->path());
    QTRY_VERIFY(QFile::exists(tools.filePath(QStringLiteral("seen"))));
    service.reset();
    QVERIFY(rows.get().isEmpty());
}

MORVAK_TEST(TestFolderReader);
#include "test_folder_reader.moc"
