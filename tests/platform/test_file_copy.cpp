#include "platform/FileCopy.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"
#include "support/Files.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace morvak;
using morvak::test::writeFile;

namespace {

const QString photoName = QStringLiteral("a.CR3");

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

struct Folders {
    QTemporaryDir source;
    QTemporaryDir destination;

    Folders()
    {
        writeFile(source.filePath(photoName), "new photo");
        writeFile(destination.filePath(photoName), "old photo");
    }
    [[nodiscard]] QString copy(const QString& name, const QString& newName) const
    {
        return copyFile(FolderHandle(source.path()), name, FolderHandle(destination.path()), newName);
    }
    [[nodiscard]] QString target(const QString& name = photoName) const { return destination.filePath(name); }
    [[nodiscard]] QStringList copies() const
    {
        return QDir(destination.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

}  // namespace

class TestFileCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void replacesInOneStepAndKeepsTimesAndRights();
    void refusesWithAReason_data();
    void refusesWithAReason();
    void aFullDiskLeavesTheOldFile();
    void aPhotoThatGrowsGivesNoCopy();
    void removesOnlyWhatNobodyHasOpen();
    void makesAndKnowsFoldersOfAnyName();
};

void TestFileCopy::replacesInOneStepAndKeepsTimesAndRights()
{
    const Folders folders;
    const QByteArray source = encodeFileName(folders.source.filePath(photoName));
    const timespec times[] = {{1'000'000'000, 5}, {1'700'000'000, 123'456'789}};
    QCOMPARE(::utimensat(AT_FDCWD, source.constData(), times, 0), 0);
    QCOMPARE(::chmod(source.constData(), 0440), 0);
    QFile old(folders.target());
    QVERIFY(old.open(QIODevice::ReadOnly));

    QCOMPARE(folders.copy(photoName, photoName), QString());
    QCOMPARE(contentsOf(folders.target()), QByteArray("new photo"));
    QCOMPARE(old.readAll(), QByteArray("old photo"));
    struct stat info = {};
    QCOMPARE(::stat(encodeFileName(folders.target()).constData(), &info), 0);
    QCOMPARE(info.st_mode & 07777, mode_t(0440));
    QCOMPARE(regularFileState(folders.target())->modifiedNs, 1'700'000'000'123'456'789);

    const QString link = QStringLiteral("link.CR3");
    QVERIFY(QFile::link(folders.target(), folders.target(link)));
    writeFile(folders.source.filePath(link), "another photo");
    QCOMPARE(folders.copy(link, link), QString());
    QVERIFY(regularFileState(folders.target(link)));
    QCOMPARE(contentsOf(folders.target()), QByteArray("new photo"));
    QCOMPARE(folders.copies(), QStringList({photoName, link}));
}

void TestFileCopy::refusesWithAReason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("newName");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* what, const QString& name, const QString& newName, const char* reason) {
        QTest::newRow(what) << name << newName << QString::fromUtf8(reason);
    };
    const QString x = QStringLiteral("x.CR3");
    row("gone", x, x, "het bestand is er niet meer");
    row("a folder", QStringLiteral("folder"), x, "geen gewoon bestand");
    row("a link", QStringLiteral("link.CR3"), x, "geen gewoon bestand");
    row("a pipe", QStringLiteral("pipe.CR3"), x, "geen gewoon bestand");
    row("out of the source", QStringLiteral("../") + x, x, "de naam bevat een schuine streep (/)");
    row("out of the destination", photoName, QStringLiteral("../") + x,
        "de naam bevat een schuine streep (/)");
    row("NUL", photoName, QStringLiteral("a") + QChar::Null, "dit kan geen bestandsnaam zijn");
    row("dots", photoName, QStringLiteral(".."), "dit kan geen bestandsnaam zijn");
    row("256 bytes", photoName, QString(128, u'é'), "de naam is te lang");
    row("a folder in the way", photoName, QStringLiteral("taken"),
        "in de doelmap staat iets met deze naam dat geen bestand is");
}

void TestFileCopy::refusesWithAReason()
{
    const Folders folders;
    QVERIFY(QDir(folders.source.path()).mkdir(QStringLiteral("folder")));
    QVERIFY(QFile::link(photoName, folders.source.filePath(QStringLiteral("link.CR3"))));
    QCOMPARE(::mkfifo(encodeFileName(folders.source.filePath(QStringLiteral("pipe.CR3"))).constData(), 0600),
             0);
    QVERIFY(QDir(folders.destination.path()).mkdir(QStringLiteral("taken")));
    const QStringList before = folders.copies();
    QFETCH(QString, name);
    QFETCH(QString, newName);
    QTEST(folders.copy(name, newName), "reason");
    QCOMPARE(folders.copies(), before);
}

void TestFileCopy::aFullDiskLeavesTheOldFile()
{
    const Folders folders;
    writeFile(folders.source.filePath(photoName), QByteArray(3'000'000, 'x'));
    QString reason;
    {
        const test::FullDisk disk(2'000'000);
        reason = folders.copy(photoName, photoName);
    }
    QCOMPARE(reason, QStringLiteral("het bestand is te groot voor de schijf van de doelmap"));
    QCOMPARE(contentsOf(folders.target()), QByteArray("old photo"));
    QCOMPARE(folders.copies(), QStringList(photoName));
}

void TestFileCopy::aPhotoThatGrowsGivesNoCopy()
{
    const Folders folders;
    QFile source(folders.source.filePath(photoName));
    QVERIFY(source.open(QIODevice::Append | QIODevice::Unbuffered));
    QVERIFY(source.resize(64 << 20));
    std::atomic<bool> done = false;
    std::thread writer([&] {
        while (!done)
            source.write("x");
    });
    const QString reason = folders.copy(photoName, photoName);
    done = true;
    writer.join();
    QCOMPARE(reason, QStringLiteral("het bestand veranderde tijdens het kopiëren"));
    QCOMPARE(contentsOf(folders.target()), QByteArray("old photo"));
    QCOMPARE(folders.copies(), QStringList(photoName));
}

void TestFileCopy::removesOnlyWhatNobodyHasOpen()
{
    const Folders folders;
    const QString dead = QStringLiteral(".morvak-kopie-1.deel");
    const QString alive = QStringLiteral(".morvak-kopie-2.deel");
    writeFile(folders.target(dead), "half a photo");
    QFile open(folders.target(alive));
    QVERIFY(open.open(QIODevice::WriteOnly));
    removeUnfinishedCopies(folders.destination.path());
    QCOMPARE(folders.copies(), QStringList({alive, photoName}));
}

void TestFileCopy::makesAndKnowsFoldersOfAnyName()
{
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("new/")) + decodeFileName("caf\xE9");
    QVERIFY(!FolderHandle(path).problem().isEmpty());
    const FolderHandle made(path, FolderHandle::Missing::IsMade);
    QCOMPARE(made.problem(), QString());
    const QByteArray link = encodeFileName(root.filePath(QStringLiteral("link")));
    QCOMPARE(::symlink(encodeFileName(path).constData(), link.constData()), 0);
    QVERIFY(made.isSameAs(FolderHandle(decodeFileName(link))));
    QVERIFY(!made.isSameAs(FolderHandle(root.path())));
    QCOMPARE(::rmdir(encodeFileName(path).constData()), 0);  // QTemporaryDir knows only names in UTF-8
}

MORVAK_TEST(TestFileCopy);
#include "test_file_copy.moc"
