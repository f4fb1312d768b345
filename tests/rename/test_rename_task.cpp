#include "rename/RawRenameTask.h"
#include "support/TestMain.h"

#include <QFile>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThreadPool>

using namespace morvak;

namespace {

/// A service whose readings wait until they are let through.
struct HeldService {
    QTemporaryDir folder;
    QSemaphore readings;
    QSemaphore gate;

    HeldService()
    {
        QFile file(folder.filePath(QStringLiteral("a.CR3")));
        (void)file.open(QIODevice::WriteOnly);
    }
    [[nodiscard]] RawRenameService service()
    {
        return RawRenameService([this](const QString&, const QSet<QString>&, const ReadingControl&) {
            readings.release();
            gate.acquire();
            return FolderMetadata{
                QList<SubjectAndDate>(2, {QStringLiteral("a.CR3"), QStringLiteral("X"), {}})};
        });
    }
    [[nodiscard]] QString source() const { return folder.path(); }
    [[nodiscard]] QString destination() const { return folder.filePath(QStringLiteral("copies")); }
    [[nodiscard]] QString firstCopy() const { return destination() + QStringLiteral("/X_01.CR3"); }
};

}  // namespace

class TestRenameTask : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsHowFarItIs();
    void mayGoWhileARunIsUnderWay();
};

void TestRenameTask::tellsHowFarItIs()
{
    HeldService held;
    held.gate.release(2);
    RawRenameTask task(held.service());
    QSignalSpy progress(&task, &RawRenameTask::progressChanged);
    QSignalSpy finished(&task, &RawRenameTask::finished);
    task.giveUp();  // of no run: it leaves the next one alone
    for (int run = 1; run <= 2; ++run) {
        QVERIFY(task.start(held.source(), held.destination()));
        QVERIFY(task.isRunning() && !task.start(held.source(), held.destination()));
        QTRY_COMPARE(finished.size(), run);
        QVERIFY(!task.isRunning());
        QCOMPARE(finished.last().first().value<RawRenameSummary>().renamedCount(), 2);
        QCOMPARE(progress.size(), 3 * run);
        QCOMPARE(progress.last(), QVariantList({qsizetype(2), qsizetype(2)}));
    }
}

void TestRenameTask::mayGoWhileARunIsUnderWay()
{
    HeldService held;
    int heard = 0;
    {
        RawRenameTask task(held.service());
        connect(&task, &RawRenameTask::finished, this, [&heard] { ++heard; });
        QVERIFY(task.start(held.source(), held.destination()));
        held.readings.acquire();
    }
    held.gate.release();
    QVERIFY(QThreadPool::globalInstance()->waitForDone(30'000));
    QCoreApplication::processEvents();
    QCOMPARE(heard, 0);
    QVERIFY(!QFile::exists(held.firstCopy()));
}

MORVAK_TEST(TestRenameTask);
#include "test_rename_task.moc"
