#include "platform/KeptFile.h"
#include "support/CapturedOutput.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

class TestKeptFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void missingFileAndFoldersAreMade();
    void acceptedFileIsReplacedWithoutACopy();
    void fileThatWasNotUnderstoodIsCopiedAside();
    void copiesDoNotOverwriteEachOther();
    void nothingIsWrittenWhenTheCopyFails();
    void oldFileOutlivesAFullDisk();
    void whatIsNoFileStaysWhatItIs_data();
    void whatIsNoFileStaysWhatItIs();
    void folderThatCannotBeMade();
    void symbolicLinksStay();

private:
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QByteArray content(const QString& name) const
    {
        QFile file(m_folder->filePath(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    void write(const QByteArray& bytes) const
    {
        QFile file(m_path);
        QVERIFY(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_path;
};

void TestKeptFile::init()
{
    m_folder.emplace();
    m_path = m_folder->filePath(u"shoots.json"_s);
}

void TestKeptFile::missingFileAndFoldersAreMade()
{
    m_path = m_folder->filePath(u"a/b/shoots.json"_s);
    CapturedOutput output;
    KeptFile file(m_path);
    QVERIFY(!file.read());
    QVERIFY(file.replace("one"));
    QCOMPARE(content(u"a/b/shoots.json"_s), QByteArray("one"));
    QCOMPARE(output.take(), QString());
}

void TestKeptFile::acceptedFileIsReplacedWithoutACopy()
{
    write("one");
    KeptFile file(m_path);
    QCOMPARE(file.read(), QByteArray("one"));
    file.accept();
    QVERIFY(file.replace("two"));
    QVERIFY(file.replace("three"));
    QCOMPARE(names(), QStringList{u"shoots.json"_s});
    QCOMPARE(content(u"shoots.json"_s), QByteArray("three"));
}

void TestKeptFile::fileThatWasNotUnderstoodIsCopiedAside()
{
    write("not understood");
    CapturedOutput output;
    KeptFile file(m_path);
    QVERIFY(file.read());
    file.reject(u"reden"_s);
    QVERIFY(file.replace("new"));
    QVERIFY(file.replace("newer"));
    QCOMPARE(names().size(), 2);
    QVERIFY(names().at(1).startsWith(u"shoots.json.onleesbaar-20"_s));
    QCOMPARE(content(names().at(1)), QByteArray("not understood"));
    QCOMPARE(content(u"shoots.json"_s), QByteArray("newer"));
    const QString lines = output.take();
    QVERIFY(lines.startsWith(u"⚠️ "_s + m_path + u" is niet gelezen: reden\n⚠️ "_s));
    QVERIFY(lines.contains(names().at(1)));
}

void TestKeptFile::copiesDoNotOverwriteEachOther()
{
    const CapturedOutput output;
    for (const char* bytes : {"first", "second", "third"}) {
        write(bytes);
        QVERIFY(KeptFile(m_path).replace("new"));  // never read, so never understood
    }
    QByteArrayList kept;
    for (const QString& name : names().sliced(1))
        kept.append(content(name));
    std::sort(kept.begin(), kept.end());
    QCOMPARE(kept, (QByteArrayList{"first", "second", "third"}));
}

void TestKeptFile::nothingIsWrittenWhenTheCopyFails()
{
    write(QByteArray(5000, 'x'));
    KeptFile file(m_path);
    CapturedOutput output;
    {
        const FullDisk disk(2000);
        QVERIFY(!file.replace("small enough"));
    }
    QCOMPARE(names(), QStringList{u"shoots.json"_s});
    QCOMPARE(content(u"shoots.json"_s), QByteArray(5000, 'x'));
    QVERIFY(output.take().startsWith(u"⚠️ "_s + m_path + u" is niet bewaard: "_s));
    const CapturedOutput rest;
    QVERIFY(file.replace("space again"));
    QCOMPARE(names().size(), 2);
}

void TestKeptFile::oldFileOutlivesAFullDisk()
{
    KeptFile file(m_path);
    QVERIFY(file.replace("old"));
    CapturedOutput output;
    {
        const FullDisk disk(2000);
        QVERIFY(!file.replace(QByteArray(5000, 'x')));
    }
    QCOMPARE(names(), QStringList{u"shoots.json"_s});
    QCOMPARE(content(u"shoots.json"_s), QByteArray("old"));
    QVERIFY(output.take().startsWith(u"⚠️ "_s + m_path + u" is niet bewaard: "_s));
}

void TestKeptFile::whatIsNoFileStaysWhatItIs_data()
{
    QTest::addColumn<bool>("pipe");
    QTest::newRow("folder") << false;
    QTest::newRow("pipe that nobody writes into") << true;
}

void TestKeptFile::whatIsNoFileStaysWhatItIs()
{
    QFETCH(const bool, pipe);
    QVERIFY(pipe ? ::mkfifo(QFile::encodeName(m_path).constData(), 0600) == 0 : QDir().mkdir(m_path));
    CapturedOutput output;
    KeptFile file(m_path);
    QVERIFY(!file.read());
    QVERIFY(!file.replace("new"));
    QCOMPARE(names(), QStringList{u"shoots.json"_s});
    QVERIFY(!QFileInfo(m_path).isFile());
    QCOMPARE(output.take().count(u"geen gewoon bestand"_s), 2);
}

void TestKeptFile::folderThatCannotBeMade()
{
    write("a file where the folder should be");
    CapturedOutput output;
    KeptFile file(m_path + u"/Morvak/shoots.json"_s);
    QVERIFY(!file.read());
    QVERIFY(!file.replace("new"));
    QVERIFY(output.take().contains(u"is niet bewaard"_s));
    QCOMPARE(content(u"shoots.json"_s), QByteArray("a file where the folder should be"));
}

void TestKeptFile::symbolicLinksStay()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"elsewhere"_s));
    QVERIFY(QFile::link(u"elsewhere/real.json"_s, m_folder->filePath(u"link"_s)));
    QVERIFY(QFile::link(u"link"_s, m_path));
    KeptFile file(m_path);
    for (const char* bytes : {"through a dangling link", "through a whole one"}) {
        QVERIFY(file.replace(bytes));
        QCOMPARE(content(u"elsewhere/real.json"_s), QByteArray(bytes));
        QVERIFY(QFileInfo(m_path).isSymLink() && QFileInfo(m_folder->filePath(u"link"_s)).isSymLink());
    }
}

MORVAK_TEST(TestKeptFile);
#include "test_kept_file.moc"
