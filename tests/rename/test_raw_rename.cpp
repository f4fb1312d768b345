#include "metadata/ExifToolService.h"
#include "platform/FolderHandle.h"
#include "platform/PhotoFile.h"
#include "rename/GivenNames.h"
#include "rename/RawRenameService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "support/CapturedOutput.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <future>

#include <unistd.h>

using namespace morvak;
using morvak::test::writeFile;
using Entries = QList<SubjectAndDate>;

namespace {

/// Name and content of every file; "/" stands for a folder's content.
QMap<QString, QByteArray> filesIn(const QString& folder)
{
    QMap<QString, QByteArray> files;
    for (const QFileInfo& info :
         QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        QFile file(info.filePath());
        files[info.fileName()] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("/");
    }
    return files;
}

/// Each is "name|subject" or "name|subject|date"; a semicolon parts them.
Entries entriesOf(const QByteArray& text)
{
    Entries entries;
    for (const QString& each : QString::fromUtf8(text).split(u';'))
        entries.append({each.section(u'|', 0, 0), each.section(u'|', 1, 1), each.section(u'|', 2, 2)});
    return entries;
}

/// "old > new", "old ! reason" or "old ?" for each result.
QByteArray textOf(const RawRenameSummary& summary)
{
    QStringList lines;
    for (const RawRenameResult& result : summary.results) {
        QString what = QStringLiteral(" ?");
        if (const auto* renamed = std::get_if<RawRenameResult::Renamed>(&result.outcome))
            what = QStringLiteral(" > ") + renamed->newName;
        if (const auto* failed = std::get_if<RawRenameResult::SkippedCopyFailed>(&result.outcome))
            what = QStringLiteral(" ! ") + failed->text;
        lines.append(result.originalFileName + what);
    }
    return lines.join(u';').toUtf8();
}

}  // namespace

class TestRawRename : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void takesTheNameFromTheSubject_data();
    void takesTheNameFromTheSubject();
    void numbersInOrderOfCapture();
    void sidecarsFollowTheirPhotos();
    void failuresKeepTheirNumber();
    void aRunReplacesAnEarlierRunsCopiesOnly();
    void ontoItselfNothingIsCopied();
    void aDestinationThatCannotBeIsTold();
    void canBeGivenUpBetweenFiles();
    void copiesTaggedPhotos();

private:
    /// Names without blanks.
    void add(const char* names) const
    {
        for (const QByteArray& name : QByteArray(names).split(' '))
            writeFile(source(QString::fromUtf8(name)), "content of " + name);
    }
    [[nodiscard]] QString source(const QString& name = {}) const { return m_source.path() + u'/' + name; }
    [[nodiscard]] QString destination(const QString& name = {}) const { return m_destination + u'/' + name; }
    [[nodiscard]] QByteArray run(const QByteArray& entries, const QString& to) const
    {
        const RawRenameService service(
            [&entries](const QString&, const QSet<QString>&, const ReadingControl&) {
                return FolderMetadata{entriesOf(entries)};
            });
        return textOf(service.run(source(), to));
    }
    [[nodiscard]] QByteArray run(const QByteArray& entries) const { return run(entries, destination()); }

    QTemporaryDir m_root;
    QTemporaryDir m_source;
    QString m_destination;
};

void TestRawRename::init()
{
    static int count = 0;
    m_destination = m_root.filePath(QStringLiteral("new/%1").arg(++count));
    for (const QString& name : filesIn(source()).keys())
        QVERIFY(QFile::remove(source(name)));
}

void TestRawRename::takesTheNameFromTheSubject_data()
{
    QTest::addColumn<QString>("subject");
    QTest::addColumn<std::optional<QString>>("name");
    const auto row = [](const char* subject, const char* name) {
        QTest::newRow(subject) << QString::fromUtf8(subject)
                               << (name ? std::optional(QString::fromUtf8(name)) : std::nullopt);
    };
    row("Set 12, Brand, shirt blauw", "Brand, shirt blauw");
    row("Set 3 — Brand", "Brand");
    row("Set 3-Brand", "Brand");
    row("Set 3 – Brand", "Set 3 – Brand");
    row("set 3, Brand", "set 3, Brand");
    row("Set\t\u00a03\u2028,\n Brand", "Brand");
    row("Set5,,x", ",x");
    row("Set 1, Set 2, Brand", "Set 2, Brand");
    row("Brand Set 2, x", "Brand Set 2, x");
    row("Set A, Brand", "Set A, Brand");
    row("Set 7", "Set 7");
    row("  \u00a0../Brand/%1\t ", "../Brand/%1");
    row("\nBrand\n", "\nBrand\n");
    row("Set 4 - -", "-");
    for (const char* none : {"", "-", " - ", " \t", "Set 7,", " Set 4 - "})
        row(none, nullptr);
}

void TestRawRename::takesTheNameFromTheSubject()
{
    QFETCH(QString, subject);
    QTEST(RawRenameService::name(subject), "name");
}

void TestRawRename::numbersInOrderOfCapture()
{
    add("A.NEF b.nef C.x.CR3 d.jpg e.jpeg f.raw");
    const auto before = filesIn(source());
    QCOMPARE(run("A.NEF|Set 1, X|2026:01:02 10:00:02;b.nef|Set 2, X|2026:01:02 10:00:01;"
                 "C.x.CR3|X_01|2026:01:02 10:00:00;d.jpg|X|-;e.jpeg|X|;f.raw|-|2025"),
             QByteArray("e.jpeg > X_01.jpeg;d.jpg > X_02.jpg;f.raw ?;C.x.CR3 > X_01_01.CR3;"
                        "b.nef > X_03.nef;A.NEF > X_04.NEF"));
    QCOMPARE(filesIn(destination()).value(QStringLiteral("X_01_01.CR3")), QByteArray("content of C.x.CR3"));
    QCOMPARE(filesIn(destination()).size(), 5);
    QCOMPARE(filesIn(source()), before);
}

void TestRawRename::sidecarsFollowTheirPhotos()
{
    add("I.CR3 I.JPG I.xmp J.CR3 J.XMP K.CR3 K.xmp");
    QVERIFY(QDir().mkpath(destination(QStringLiteral("B_01.xmp"))));
    test::CapturedOutput output;
    (void)run("I.CR3|A;I.JPG|A;J.CR3|A;K.CR3|B");
    const QMap<QString, QByteArray> copies = filesIn(destination());
    QCOMPARE(copies.size(), 7);
    QCOMPARE(copies.value(QStringLiteral("A_01.xmp")), QByteArray("content of I.xmp"));
    QCOMPARE(copies.value(QStringLiteral("A_02.xmp")), QByteArray("content of I.xmp"));
    QVERIFY(!copies.contains(QStringLiteral("A_03.xmp")));
    QCOMPARE(output.take(), QStringLiteral("⚠️ K.xmp is niet gekopieerd als B_01.xmp: "
                                           "in de doelmap staat iets met deze naam dat geen bestand is\n"));
}

void TestRawRename::failuresKeepTheirNumber()
{
    add("a.CR3");
    QVERIFY(QDir().mkpath(destination(QStringLiteral("X_01.CR3"))));
    const QByteArray longest(248, 'n');
    QCOMPARE(run("a.CR3|X;gone.CR3|X;a.CR3|X;a.CR3|../X;a.CR3|" + longest + ";a.CR3|n" + longest),
             QByteArray("a.CR3 ! in de doelmap staat iets met deze naam dat geen bestand is;"
                        "gone.CR3 ! het bestand is er niet meer;a.CR3 > X_03.CR3;"
                        "a.CR3 ! de naam bevat een schuine streep (/);"
                        "a.CR3 > " +
                        longest + "_01.CR3;a.CR3 ! de naam is te lang"));
    QCOMPARE(filesIn(destination()).size(), 3);
}

void TestRawRename::aRunReplacesAnEarlierRunsCopiesOnly()
{
    add("a.CR3 b.CR3");
    QVERIFY(QDir().mkpath(destination()));
    writeFile(destination(QStringLiteral("Brand_01.CR3")), "an earlier run's");
    writeFile(destination(QStringLiteral(".morvak-kopie-1.deel")), "half a photo");
    QCOMPARE(run("a.CR3|Brand;b.CR3|brand"), QByteArray("a.CR3 > Brand_01.CR3;b.CR3 > brand_01.CR3"));
    QCOMPARE(filesIn(destination()),
             (QMap<QString, QByteArray>{{QStringLiteral("Brand_01.CR3"), "content of a.CR3"},
                                        {QStringLiteral("brand_01.CR3"), "content of b.CR3"}}));

    // One file under two names stands for a file system that takes them for one.
    GivenNames given;
    given.add(QStringLiteral("caf\u00c9_01.CR3"));
    const QString same = QStringLiteral("CAFe\u0301_01.CR3");
    const FolderHandle folder(source());
    writeFile(source(QStringLiteral("caf\u00c9_01.CR3")), "a copy");
    QVERIFY(!given.isTaken(folder, same));
    QCOMPARE(::link(QFile::encodeName(source(QStringLiteral("caf\u00c9_01.CR3"))).constData(),
                    QFile::encodeName(source(same)).constData()),
             0);
    QVERIFY(given.isTaken(folder, same));
    QVERIFY(!given.isTaken(folder, QStringLiteral("a.CR3")));
}

void TestRawRename::ontoItselfNothingIsCopied()
{
    add("a.CR3 a.xmp b.CR3 X_01.CR3 .morvak-kopie-1.deel");
    const auto before = filesIn(source());
    const QString link = m_root.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(source(), link));
    for (const QString& to : {source(), source(QStringLiteral("../")) + QDir(source()).dirName(), link})
        QCOMPARE(run("a.CR3|X;b.CR3|-", to),
                 QByteArray("a.CR3 ! de doelmap is de bronmap;b.CR3 ! de doelmap is de bronmap"));
    QCOMPARE(filesIn(source()), before);
}

void TestRawRename::aDestinationThatCannotBeIsTold()
{
    add("a.CR3");
    const QString under = source(QStringLiteral("a.CR3/x"));
    const QByteArray results = run("a.CR3|X;a.CR3|-", under);
    QVERIFY(results.startsWith("a.CR3 ! de map " + under.toUtf8() + " kan niet gebruikt worden: "));
    QVERIFY(results.endsWith(";a.CR3 ?"));
}

void TestRawRename::canBeGivenUpBetweenFiles()
{
    add("a.CR3");
    std::stop_source stop;
    const RawRenameService service(
        [&stop](const QString&, const QSet<QString>&, const ReadingControl& control) {
            if (control.giveUp != stop.get_token())
                qFatal("a reading could not be given up");
            control.progress(0, 9);
            return FolderMetadata{Entries(3, {QStringLiteral("a.CR3"), QStringLiteral("X"), {}}), 4, 2};
        });
    QList<std::pair<qsizetype, qsizetype>> seen;
    const auto progress = [&](qsizetype done, qsizetype total) {
        seen.append({done, total});
        if (done == 2)
            stop.request_stop();
    };
    const RawRenameSummary summary = service.run(source(), destination(), progress, stop.get_token());
    QCOMPARE(summary.renamedCount(), 2);
    QCOMPARE(summary.unsendable, 4);
    QCOMPARE(summary.unread, 2);
    QCOMPARE(seen, (QList<std::pair<qsizetype, qsizetype>>{{0, 9}, {0, 3}, {1, 3}, {2, 3}}));
    QCOMPARE(filesIn(destination()).size(), 2);
    QVERIFY(service.run(source(), m_root.filePath(QStringLiteral("none")), {}, stop.get_token())
                .results.isEmpty());
    QVERIFY(!QFile::exists(m_root.filePath(QStringLiteral("none"))));
}

/// With the real tool and real photos, tagged as a shoot leaves them.
void TestRawRename::copiesTaggedPhotos()
{
    const auto take = [this](const char* name, const QByteArray& photo, const char* subject) {
        const QString path = source(QString::fromLatin1(name));
        writeFile(path, photo);
        QCOMPARE(QProcess::execute(QStringLiteral("/usr/bin/exiftool"),
                                   {QStringLiteral("-q"), QStringLiteral("-overwrite_original"),
                                    QStringLiteral("-XMP:Subject=") + QString::fromUtf8(subject), path}),
                 0);
    };
    samples::PhotoOptions options = samples::plainPhoto(QSize(16, 16));
    options.taken = QDateTime(QDate(2026, 11, 23), QTime(10, 0, 2));
    take("-late.NEF", samples::nefPhoto(options), "Set 12, Noord, Overshirt, navy");
    take("traversal.DNG", samples::dngPhoto(options), "../Noord");
    options.taken = options.taken.addSecs(-1);
    take("early.jpg", samples::jpegPhoto(options), "Set 12, Noord, Overshirt, navy");
    writeFile(source(QStringLiteral("untagged.arw")), samples::arwPhoto(options));
    add("-late.xmp notes.txt");
    const auto before = filesIn(source());

    ExifToolService tool;
    const RawRenameService service(
        [&tool](const QString& in, const QSet<QString>& extensions, const ReadingControl& control) {
            return tool.readSubjectsAndDates(in, extensions, control);
        });
    auto summary = std::async(std::launch::async, [&] { return service.run(source(), destination()); });
    QList<QByteArray> results = textOf(summary.get()).split(';');
    std::sort(results.begin(), results.end());
    QCOMPARE(results.join(';'), QByteArray("-late.NEF > Noord, Overshirt, navy_02.NEF;"
                                           "early.jpg > Noord, Overshirt, navy_01.jpg;"
                                           "traversal.DNG ! de naam bevat een schuine streep (/);"
                                           "untagged.arw ?"));
    const auto copies = filesIn(destination());
    QCOMPARE(copies.size(), 3);
    QVERIFY(copies.value(QStringLiteral("Noord, Overshirt, navy_02.NEF")) ==
            before.value(QStringLiteral("-late.NEF")));
    QVERIFY(copies.contains(QStringLiteral("Noord, Overshirt, navy_02.xmp")));
    QVERIFY(filesIn(source()) == before);
}

MORVAK_TEST(TestRawRename);
#include "test_raw_rename.moc"
