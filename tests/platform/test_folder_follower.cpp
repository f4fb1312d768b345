#include "platform/FolderFollower.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <unistd.h>

using namespace morvak;
using namespace Qt::StringLiterals;

class TestFolderFollower : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhereThePathLeads_data();
    void tellsWhereThePathLeads();
    void tellsOfMountsAndUnmounts();
    void emptyMountPointIsTold_data();
    void emptyMountPointIsTold();
    void readsTheMountTable();
};

void TestFolderFollower::tellsWhereThePathLeads_data()
{
    QTest::addColumn<QString>(
        "change");  // a shell command in the folder that holds day/shoot and link -> day
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isThereAfterwards");
    QTest::newRow("moved away") << u"mv day/shoot away"_s << u"day/shoot"_s << false;
    QTest::newRow("removed") << u"rmdir day/shoot"_s << u"day/shoot"_s << false;
    QTest::newRow("parent moved away") << u"mv day away"_s << u"day/shoot"_s << false;
    QTest::newRow("parent replaced") << u"mkdir -p new/shoot; mv day away; mv new day"_s << u"day/shoot"_s
                                     << true;
    QTest::newRow("symbolic link turned")
        << u"mkdir -p new/shoot; ln -sfn new link"_s << u"link/shoot"_s << true;
    QTest::newRow("what the link leads to moved") << u"mv day away"_s << u"link/shoot"_s << false;
}

void TestFolderFollower::tellsWhereThePathLeads()
{
    QFETCH(QString, change);
    QFETCH(QString, path);
    const QTemporaryDir root;
    const auto run = [&](const QString& command) {
        return std::system(u"cd '%1' && { %2; }"_s.arg(root.path(), command).toUtf8().constData());
    };
    QCOMPARE(run(u"mkdir -p day/shoot; ln -s day link"_s), 0);
    const QString folder = root.filePath(path);
    const std::optional<FolderPlace> before = findFolder(folder);
    QVERIFY(before && !before->mountPoint.isEmpty());
    QList<std::optional<FolderPlace>> told;
    const auto follower = followFolder(folder, [&](const auto& now) { told.append(now); });
    follower->look();
    QTRY_COMPARE(told.size(), 1);
    QVERIFY(told.constFirst() && told.constFirst()->isSameFolderAs(*before));
    QCOMPARE(run(change), 0);
    QTRY_VERIFY(told.size() > 1);
    QTRY_VERIFY(!told.constLast() || !told.constLast()->isSameFolderAs(*before));
    follower->look();
    QTRY_COMPARE(told.constLast().has_value(), findFolder(folder).has_value());
    QTEST(findFolder(folder).has_value(), "isThereAfterwards");
}

void TestFolderFollower::tellsOfMountsAndUnmounts()
{
    const QTemporaryDir root;
    const QString drive = root.filePath(u"my drive"_s);
    const QString folder = drive + u"/shoot"_s;
    const QByteArray mountPoint = drive.toUtf8();
    QVERIFY(QDir().mkpath(folder));
    const std::optional<FolderPlace> beneath = findFolder(folder);
    if (::mount("tmpfs", mountPoint.constData(), "tmpfs", 0, "size=1m") != 0)
        QSKIP("only who may mount can test this");
    const auto unmount = qScopeGuard([&] { ::umount2(mountPoint.constData(), MNT_DETACH); });
    QVERIFY(QDir().mkpath(folder));
    std::optional<FolderPlace> now;
    const auto follower = followFolder(folder, [&](const auto& place) { now = place; });
    follower->look();
    QTRY_VERIFY(now);
    const FolderPlace mounted = *now;
    QCOMPARE(mounted.mountPoint, QFile::encodeName(QFileInfo(drive).canonicalFilePath()));
    QCOMPARE(::umount2(mountPoint.constData(), MNT_DETACH), 0);
    QTRY_VERIFY(now && now->isSameFolderAs(*beneath));
    QVERIFY(now->isLeftBehindBy(mounted));
    QVERIFY(!mounted.isLeftBehindBy(*now));
    QCOMPARE(::mount("tmpfs", mountPoint.constData(), "tmpfs", 0, "size=1m"), 0);
    QTRY_VERIFY(!now);
    QVERIFY(QDir().mkpath(folder));
    follower->look();
    QTRY_VERIFY(now && !now->isLeftBehindBy(mounted));
}

void TestFolderFollower::emptyMountPointIsTold_data()
{
    QTest::addColumn<QByteArray>("mountBefore");
    QTest::addColumn<QByteArray>("pathNow");
    QTest::addColumn<QByteArray>("mountNow");
    QTest::addColumn<bool>("isLeftBehind");
    const auto row = [](const char* what, const char* before, const char* path, const char* now, bool left) {
        QTest::newRow(what) << QByteArray(before) << QByteArray(path) << QByteArray(now) << left;
    };
    row("unmounted", "/media/disk", "/media/disk", "/", true);
    row("unmounted, a folder of the same name beneath", "/media/disk", "/media/disk/shoot", "/", true);
    row("mounted again", "/media/disk", "/media/disk/shoot", "/media/disk", false);
    row("more mounted on it", "/media", "/media/disk", "/media/disk", false);
    row("made anew on the root", "/", "/home/shoot", "/", false);
    row("the path leads elsewhere now", "/media/disk", "/home/shoot", "/", false);
    row("a mount point with a longer name", "/media/disk", "/media/disk2", "/", false);
}

void TestFolderFollower::emptyMountPointIsTold()
{
    QFETCH(QByteArray, mountBefore);
    QFETCH(QByteArray, pathNow);
    QFETCH(QByteArray, mountNow);
    const FolderPlace before{1, 1, {}, mountBefore};
    const FolderPlace now{2, 2, pathNow, mountNow};
    QTEST(now.isLeftBehindBy(before), "isLeftBehind");
}

void TestFolderFollower::readsTheMountTable()
{
    const QByteArray table =
        "22 1 8:1 / / rw shared:1 - ext4 /dev/sda1 rw\n"
        "222 22 8:2 / /media/my\\040disk\\134 rw - vfat /dev/sdb1 rw\n";
    QCOMPARE(mountPointIn(table, "22"), "/");
    QCOMPARE(mountPointIn(table, "222"), "/media/my disk\\");
    QCOMPARE(mountPointIn(table, "2"), "");
}

MORVAK_TEST(TestFolderFollower);
#include "test_folder_follower.moc"
