#include "platform/FileName.h"
#include "platform/PhotoFile.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace morvak;

namespace {

QString makeFile(const QTemporaryDir& folder, const QByteArray& name)
{
    const QString path = folder.path() + u'/' + decodeFileName(name);
    const int fd = ::open(encodeFileName(path).constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    [[maybe_unused]] const ssize_t n = ::write(fd, "photo", 5);
    ::close(fd);
    return path;
}

bool isHeld(const QString& path)
{
    return heldForWriting({path}).contains(path);
}

}  // namespace

class TestPhotoFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyRegularFilesHaveAState();
    void writersHoldAFile_data();
    void writersHoldAFile();
    void anotherProcessHoldsAFile();
    void leaseIsGivenBack();
    void manyAreLookedUpTogether();
    void opensAndRemovesOnlyRegularFiles();
};

void TestPhotoFile::onlyRegularFilesHaveAState()
{
    const QTemporaryDir folder;
    const QString file = makeFile(folder, "caf\xE9.jpg");
    QCOMPARE(regularFileState(file)->size, 5U);
    QVERIFY(folderEntries(folder.path())->contains(decodeFileName("caf\xE9.jpg")));
    const QString link = folder.filePath(QStringLiteral("link.jpg"));
    QCOMPARE(::symlink(encodeFileName(file).constData(), encodeFileName(link).constData()), 0);
    const QString pipe = folder.filePath(QStringLiteral("pipe.jpg"));
    QCOMPARE(::mkfifo(encodeFileName(pipe).constData(), 0600), 0);
    for (const QString& other : {link, pipe, folder.path(), folder.filePath(QStringLiteral("absent.jpg"))}) {
        QVERIFY(!regularFileState(other));
        QVERIFY(!openForReading(other));
        QVERIFY(!isHeld(other));
    }
    QVERIFY(!folderEntries(file));
    QVERIFY(removeFile(file));
}

void TestPhotoFile::writersHoldAFile_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("held");
    QTest::newRow("reading") << O_RDONLY << false;
    QTest::newRow("writing") << O_WRONLY << true;
    QTest::newRow("both") << O_RDWR << true;
    QTest::newRow("appending") << (O_WRONLY | O_APPEND) << true;
}

void TestPhotoFile::writersHoldAFile()
{
    QFETCH(int, flags);
    const QTemporaryDir folder;
    const QString path = makeFile(folder, "a.jpg");
    const int fd = ::open(encodeFileName(path).constData(), flags | O_CLOEXEC);
    QTEST(isHeld(path), "held");
    ::close(fd);
    QVERIFY(!isHeld(path));
    QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner));
    QVERIFY2(!isHeld(path), "a write-protected photo is free");
}

void TestPhotoFile::anotherProcessHoldsAFile()
{
    const QTemporaryDir folder;
    const QString path = makeFile(folder, "a.jpg");
    QProcess writer;
    writer.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("exec 3>>\"$1\"; read line"),
                                        QStringLiteral("sh"), path});
    QTRY_VERIFY(isHeld(path));
    writer.write("\n");
    QVERIFY(writer.waitForFinished());
    QVERIFY(!isHeld(path));
}

void TestPhotoFile::leaseIsGivenBack()
{
    const QTemporaryDir folder;
    const QString path = makeFile(folder, "a.jpg");
    QVERIFY(!isHeld(path));
    const int fd = ::open(encodeFileName(path).constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    QVERIFY2(fd >= 0, "a lease that is still there would refuse this");
    ::close(fd);
}

void TestPhotoFile::manyAreLookedUpTogether()
{
    const QTemporaryDir folder;
    const QStringList paths = {makeFile(folder, "a"), makeFile(folder, "b"), makeFile(folder, "c")};
    const int fd = ::open(encodeFileName(paths.at(1)).constData(), O_WRONLY | O_CLOEXEC);
    QCOMPARE(heldForWriting(paths), QSet<QString>{paths.at(1)});
    ::close(fd);
    QVERIFY(heldForWriting({}).isEmpty());
}

void TestPhotoFile::opensAndRemovesOnlyRegularFiles()
{
    const QTemporaryDir folder;
    const QString path = makeFile(folder, "caf\xE9.jpg");
    QCOMPARE(openForReading(path)->readAll(), QByteArray("photo"));
    QVERIFY(removeFile(path));
    QVERIFY(!regularFileState(path));
}

MORVAK_TEST(TestPhotoFile);
#include "test_photo_file.moc"
