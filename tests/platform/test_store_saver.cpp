#include "platform/StoreSaver.h"
#include "support/CapturedOutput.h"
#include "support/Files.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds shortly(5);

}  // namespace

class TestStoreSaver : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void asksAgainWhileASaveFails();
    void saysTheSameProblemOnce();
    void everyReasonIsAProblem();
    void changeIsOwedUntilItIsWritten();
    void folderThatIsGoneIsMadeAgain();

private:
    [[nodiscard]] QString path() const { return m_folder.filePath(u"a/b/shoots.json"_s); }

    QTemporaryDir m_folder;
};

void TestStoreSaver::asksAgainWhileASaveFails()
{
    const CapturedOutput output;
    StoreSaver saver(path(), shortly);
    QSignalSpy asked(&saver, &StoreSaver::saveAsked);
    QSignalSpy problems(&saver, &StoreSaver::problemChanged);
    saver.write("old");
    {
        const FullDisk disk(2000);
        saver.write(QByteArray(5000, 'x'));
        QVERIFY(saver.isBehind() && !saver.problem().isEmpty());
        QCOMPARE(problems.size(), 1);
        QTRY_VERIFY(asked.size() >= 3);
        saver.write(QByteArray(6000, 'x'));
        const qsizetype before = asked.size();
        QTRY_VERIFY(asked.size() > before);
    }
    saver.write("new");
    QVERIFY(!saver.isBehind() && saver.problem().isEmpty());
    QCOMPARE(problems.size(), 2);
    asked.clear();
    QTest::qWait(10 * int(shortly.count()));  // a timer that was left running would strike
    QCOMPARE(asked.size(), 0);
}

void TestStoreSaver::saysTheSameProblemOnce()
{
    CapturedOutput output;
    StoreSaver saver(path(), std::chrono::hours(1));
    QSignalSpy problems(&saver, &StoreSaver::problemChanged);
    {
        const FullDisk disk(2000);
        for (int i = 0; i < 3; ++i)
            saver.write(QByteArray(5000, 'x'));
    }
    QCOMPARE(problems.size(), 1);
    QCOMPARE(output.take().count(u"is niet bewaard"_s), 1);
}

void TestStoreSaver::everyReasonIsAProblem()
{
    CapturedOutput output;
    StoreSaver saver(path(), std::chrono::hours(1));
    saver.fail(u"reden"_s);
    saver.fail(u"reden"_s);
    QCOMPARE(saver.problem(), u"reden"_s);
    QVERIFY(saver.isBehind());
    QCOMPARE(output.take(), u"⚠️ %1 is niet bewaard: reden\n"_s.arg(path()));
}

void TestStoreSaver::changeIsOwedUntilItIsWritten()
{
    StoreSaver saver(path());
    QVERIFY(!saver.isBehind());
    saver.noteChange();
    QVERIFY(saver.isBehind() && saver.problem().isEmpty());
    saver.write("new");
    QVERIFY(!saver.isBehind());
}

void TestStoreSaver::folderThatIsGoneIsMadeAgain()
{
    const CapturedOutput output;
    StoreSaver saver(path(), std::chrono::hours(1));
    saver.write("one");
    QVERIFY(QDir(m_folder.filePath(u"a"_s)).removeRecursively());
    writeFile(m_folder.filePath(u"a"_s), "in the way");
    saver.write("two");
    QVERIFY(saver.isBehind());
    QVERIFY(saver.problem().contains(u"map"_s));
    QVERIFY(QFile::remove(m_folder.filePath(u"a"_s)));
    saver.write("two");
    QVERIFY(!saver.isBehind());
    QFile file(path());
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), "two");
}

MORVAK_TEST(TestStoreSaver);
#include "test_store_saver.moc"
