#include "platform/FileName.h"
#include "platform/FolderEvents.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace morvak;
using Kind = FolderEvent::Kind;

namespace {

struct Recorder {
    explicit Recorder(const QString& folder)
        : source(watchFolder(folder, [this](const QList<FolderEvent>& more) { events += more; }))
    {
    }

    /// "created a, written a": what came since the last call.
    QString taken()
    {
        source->drain();
        static const QHash<Kind, QString> words = {
            {Kind::Created, QStringLiteral("created ")},  {Kind::Written, QStringLiteral("written ")},
            {Kind::MovedHere, QStringLiteral("here ")},   {Kind::MovedAway, QStringLiteral("away ")},
            {Kind::Overflow, QStringLiteral("overflow")}, {Kind::FolderGone, QStringLiteral("gone")},
        };
        QStringList lines;
        for (const FolderEvent& event : std::exchange(events, {}))
            lines.append(words.value(event.kind) + event.name);
        return lines.join(QStringLiteral(", "));
    }

    QList<FolderEvent> events;
    std::unique_ptr<FolderEventSource> source;
};

void write(const QString& path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < 20; ++i) {
        file.write(QByteArray(10'000, 'x'));
        file.flush();
    }
}

}  // namespace

class TestFolderEvents : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatHappensToFiles();
    void arrivesThroughTheEventLoop();
    void tellsThatTheFolderIsGone_data();
    void tellsThatTheFolderIsGone();
    void refusesWhatIsNoFolder();
};

void TestFolderEvents::tellsWhatHappensToFiles()
{
    const QTemporaryDir folder;
    Recorder recorder(folder.path());
    write(folder.filePath(QStringLiteral("a")));
    QCOMPARE(recorder.taken(), QStringLiteral("created a, written a"));
    QVERIFY(QFile::rename(folder.filePath(QStringLiteral("a")), folder.filePath(QStringLiteral("b"))));
    QCOMPARE(recorder.events.size(), 0);
    recorder.source->drain();
    QCOMPARE(recorder.events.size(), 2);
    QCOMPARE(recorder.events.first().renameId, recorder.events.last().renameId);
    QVERIFY(recorder.events.first().renameId != 0);
    QCOMPARE(recorder.taken(), QStringLiteral("away a, here b"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("sub.jpg")));
    write(folder.filePath(QStringLiteral("sub.jpg/deep")));
    QVERIFY(QFile::remove(folder.filePath(QStringLiteral("b"))));
    QCOMPARE(recorder.taken(), QString());
    write(folder.path() + u'/' + decodeFileName("odd\nname"));
    QCOMPARE(recorder.taken(), QStringLiteral("created odd\nname, written odd\nname"));
}

void TestFolderEvents::arrivesThroughTheEventLoop()
{
    const QTemporaryDir folder;
    Recorder recorder(folder.path());
    write(folder.filePath(QStringLiteral("a")));
    QTRY_COMPARE(recorder.events.size(), 2);
    recorder.source.reset();
    write(folder.filePath(QStringLiteral("b")));
    QCoreApplication::processEvents();
    QCOMPARE(recorder.events.size(), 2);
}

void TestFolderEvents::tellsThatTheFolderIsGone_data()
{
    QTest::addColumn<bool>("moved");
    QTest::newRow("moved") << true;
    QTest::newRow("removed") << false;
}

void TestFolderEvents::tellsThatTheFolderIsGone()
{
    QFETCH(bool, moved);
    const QTemporaryDir parent;
    const QString folder = parent.filePath(QStringLiteral("shoot"));
    QVERIFY(QDir().mkdir(folder));
    Recorder recorder(folder);
    QVERIFY(moved ? QDir().rename(folder, folder + u'2') : QDir().rmdir(folder));
    QVERIFY(recorder.taken().startsWith(QStringLiteral("gone")));
}

void TestFolderEvents::refusesWhatIsNoFolder()
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("file")));
    QVERIFY(!watchFolder(folder.filePath(QStringLiteral("file")), {}));
    QVERIFY(!watchFolder(folder.filePath(QStringLiteral("absent")), {}));
}

MORVAK_TEST(TestFolderEvents);
#include "test_folder_events.moc"
