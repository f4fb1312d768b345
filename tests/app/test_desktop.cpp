#include "actions/SetActions.h"
#include "app/Desktop.h"
#include "engine/Engine.h"
#include "metadata/ExifToolService.h"
#include "support/PrivateUpdates.h"
#include "support/TestMain.h"
#include "ui/base/theme/Theme.h"
#include "update/UpdateChecker.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

QString headlineIn(const QString& photo)
{
    QProcess tool;
    tool.start(u"exiftool"_s, {u"-s3"_s, u"-XMP-photoshop:Headline"_s, photo});
    tool.waitForFinished();
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

}  // namespace

class TestDesktop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tagsAPhotoFromStartToQuit();
};

void TestDesktop::tagsAPhotoFromStartToQuit()
{
    const QTemporaryDir root;
    const QString folder = root.filePath(u"Herfst"_s);
    QDir().mkdir(folder);
    const QString storeFile = root.filePath(u"shoots.json"_s);
    ShootManager store(storeFile);
    store.createShoot(u"Herfst"_s, {}, {});
    store.setWatchFolder(folder, *store.activeShootId());
    {
        ExifToolService exifTool;
        UpdateChecker updates(test::privateUpdates(root.filePath(u"preferences"_s)));
        Theme theme;
        Engine engine(
            {.exifTool = exifTool, .storeFile = storeFile, .catalogFile = root.filePath(u"catalog.json"_s)});
        engine.start();
        Desktop desktop({.engine = engine, .updates = updates, .theme = theme, .version = u"1.0.0"_s});
        QVERIFY(engine.shoots().shoots().isEmpty());
        desktop.bringToFront();
        QVERIFY(desktop.shell().mainView().isVisible());
        QCOMPARE(engine.watcher().watchPath(), folder);
        QTRY_VERIFY(engine.watcher().isWatching());
        QVERIFY(takeScan(engine.shoots(), engine.watcher(), u"SET:12\nBRAND:Noord"_s));
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        QVERIFY(image.save(folder + u"/a.jpg"_s));
        QTRY_COMPARE_WITH_TIMEOUT(engine.watcher().taggedCount(), 1, 30'000);
        engine.quit();
    }
    QCOMPARE(headlineIn(folder + u"/a.jpg"_s), u"Set 12 — Noord"_s);
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"a.jpg"_s});
}

MORVAK_TEST(TestDesktop);
#include "test_desktop.moc"
