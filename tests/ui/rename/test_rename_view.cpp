#include "metadata/ExifToolService.h"
#include "sampleshoot/PhotoEncoders.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/CopyableList.h"
#include "ui/base/blocks/TaskProgress.h"
#include "ui/rename/FolderRow.h"
#include "ui/rename/RenameObstacle.h"
#include "ui/rename/RenameResultDelegate.h"
#include "ui/rename/RenameResultModel.h"
#include "ui/rename/RenameTexts.h"
#include "ui/rename/RenameView.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QSemaphore>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;
using morvak::test::writeFile;

Q_DECLARE_METATYPE(morvak::RenameFacts)
Q_DECLARE_METATYPE(morvak::RenameEnd)

namespace {

const RawRenameResult renamed{u"a.CR3"_s, RawRenameResult::Renamed{u"Noord_01.CR3"_s}};
const RawRenameResult failed{u"b.CR3"_s, RawRenameResult::SkippedCopyFailed{u"schijf vol"_s}};
const RawRenameResult nameless{u"c.CR3"_s, RawRenameResult::SkippedNoName{}};

void drop(FolderRow& row, const QString& path)
{
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&row, &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&row, &event);
}

/// The tab, on two folders of its own.
class Rename : public UiFixture {
public:
    void show()
    {
        view = std::make_unique<RenameView>(ui);
        view->resize(700, 600);
        view->show();
        list = view->findChild<CopyableList*>();
    }
    void chooseFolders() const
    {
        row(u"renameSource"_s).setFolder(source.path());
        row(u"renameDestination"_s).setFolder(destination.path());
    }
    [[nodiscard]] FolderRow& row(const QString& name) const { return *view->findChild<FolderRow*>(name); }
    [[nodiscard]] QPushButton& start() const { return *view->findChild<QPushButton*>(u"startRename"_s); }
    [[nodiscard]] bool says(const QString& text) const { return shownTexts(*view).contains(text); }
    [[nodiscard]] QStringList lines() const
    {
        QStringList all;
        for (int at = 0; at < list->model()->rowCount(); ++at)
            all.append(list->model()->index(at, 0).data().toString());
        return all;
    }

    QTemporaryDir source;
    QTemporaryDir destination;
    std::unique_ptr<RenameView> view;
    CopyableList* list = nullptr;
};

}  // namespace

class TestRenameView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mayStart_data();
    void mayStart();
    void resultLines();
    void endIsTold_data();
    void endIsTold();
    void longNamesLeaveRoom_data();
    void longNamesLeaveRoom();
    void foldersAreChosenDroppedAndMissed();
    void watchedDestinationIsRefused();
    void runIsGivenUp();
    void taggedPhotosAreCopied();
};

void TestRenameView::mayStart_data()
{
    const FolderPlace one{1, 1, "/a", "/"};
    const FolderPlace two{1, 2, "/b", "/"};
    const RenameFacts good{u"/a"_s, u"/b"_s, one, two, FolderPlace{1, 3, "/c", "/"}, false};
    const auto row = [&good](const char* name, RenameObstacle obstacle, auto&& change) {
        RenameFacts facts = good;
        change(facts);
        QTest::newRow(name) << facts << obstacle;
    };
    QTest::addColumn<RenameFacts>("facts");
    QTest::addColumn<RenameObstacle>("obstacle");
    row("both chosen", RenameObstacle::none, [](RenameFacts&) {});
    row("running", RenameObstacle::running, [](RenameFacts& f) { f.isRunning = true; });
    row("nothing chosen", RenameObstacle::noSource, [](RenameFacts& f) { f = {}; });
    row("source gone", RenameObstacle::sourceGone, [](RenameFacts& f) { f.sourcePlace.reset(); });
    row("no destination", RenameObstacle::noDestination, [](RenameFacts& f) { f.destination.clear(); });
    row("destination gone", RenameObstacle::destinationGone,
        [](RenameFacts& f) { f.destinationPlace.reset(); });
    row("one folder by two paths", RenameObstacle::sameFolder,
        [&](RenameFacts& f) { f.destinationPlace = one; });
    row("destination watched", RenameObstacle::destinationWatched,
        [&](RenameFacts& f) { f.watchedPlace = two; });
    row("source watched", RenameObstacle::none, [&](RenameFacts& f) { f.watchedPlace = one; });
    row("nothing watched", RenameObstacle::none, [](RenameFacts& f) { f.watchedPlace.reset(); });
}

void TestRenameView::mayStart()
{
    QFETCH(const RenameFacts, facts);
    const RenameObstacle obstacle = renameObstacle(facts);
    QTEST(obstacle, "obstacle");
    QCOMPARE(obstacleText(obstacle).isEmpty(), obstacle == RenameObstacle::none);
}

void TestRenameView::resultLines()
{
    RenameResultModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setSummary({{renamed, failed, nameless}});
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row)
        lines.append(model.index(row).data(RenameResultModel::SymbolRole).toString() + u' ' +
                     model.index(row).data().toString());
    QCOMPARE(lines, QStringList({u"arrow.right.circle.fill a.CR3 → Noord_01.CR3"_s,
                                 u"xmark.circle.fill b.CR3 — kopiëren mislukt: schijf vol"_s,
                                 u"questionmark.circle.fill c.CR3 — geen naam in metadata gevonden"_s}));
}

void TestRenameView::endIsTold_data()
{
    QTest::addColumn<int>("results");
    QTest::addColumn<int>("unread");
    QTest::addColumn<int>("unsendable");
    QTest::addColumn<RenameEnd>("end");
    QTest::addColumn<QString>("told");
    QTest::newRow("all done") << 3 << 0 << 0 << RenameEnd{false, 3} << QString();
    QTest::newRow("given up") << 2 << 0 << 0 << RenameEnd{true, 348}
                              << u"Gestopt: 2 van 348 bestanden gedaan."_s;
    QTest::newRow("given up too late") << 3 << 0 << 0 << RenameEnd{true, 3} << QString();
    QTest::newRow("given up while reading")
        << 0 << 0 << 0 << RenameEnd{true, 0} << u"Gestopt voordat er een bestand gekopieerd was."_s;
    QTest::newRow("no photos") << 0 << 0 << 0 << RenameEnd{}
                               << u"Geen RAW- of JPEG-bestanden gevonden in de bronmap."_s;
    QTest::newRow("none read") << 0 << 4000 << 0 << RenameEnd{} << u"gelezen kon worden: 4000. "_s;
    QTest::newRow("some not read") << 3 << 256 << 0 << RenameEnd{false, 3} << u"gelezen kon worden: 256. "_s;
    QTest::newRow("odd names") << 3 << 0 << 2 << RenameEnd{false, 3} << u"een onbekend teken): 2."_s;
}

void TestRenameView::endIsTold()
{
    QFETCH(const int, results);
    QFETCH(const int, unread);
    QFETCH(const int, unsendable);
    QFETCH(const RenameEnd, end);
    QFETCH(const QString, told);
    const QString ending =
        RenameTexts::ending({QList<RawRenameResult>(results, renamed), unread, unsendable}, end);
    QCOMPARE(ending.isEmpty(), told.isEmpty());
    QVERIFY2(ending.contains(told), qPrintable(ending));
}

void TestRenameView::longNamesLeaveRoom_data()
{
    QTest::addColumn<int>("natural");
    QTest::addColumn<int>("rest");
    QTest::addColumn<int>("width");
    QTest::newRow("both fit") << 60 << 40 << 60;
    QTest::newRow("long name, short rest") << 500 << 30 << 70;
    QTest::newRow("short name, long rest") << 20 << 500 << 20;
    QTest::newRow("both long") << 500 << 500 << 50;
}

void TestRenameView::longNamesLeaveRoom()
{
    QFETCH(const int, natural);
    QFETCH(const int, rest);
    QTEST(nameWidth(natural, rest, 100), "width");
}

void TestRenameView::foldersAreChosenDroppedAndMissed()
{
    Rename rename;
    rename.show();
    FolderRow& source = rename.row(u"renameSource"_s);
    rename.dialogs.folder = rename.source.path();
    source.findChild<QPushButton*>()->click();
    QCOMPARE(rename.dialogs.asked.value(1), u"Selecteer map"_s);
    rename.dialogs.folder.clear();  // cancelled: what was chosen stays
    source.findChild<QPushButton*>()->click();
    QCOMPARE(source.folder(), rename.source.path());
    QVERIFY(!rename.start().isEnabled());
    QCOMPARE(rename.start().toolTip(), obstacleText(RenameObstacle::noDestination));

    FolderRow& destination = rename.row(u"renameDestination"_s);
    writeFile(rename.source.filePath(u"photo.jpg"_s), "no folder");
    drop(destination, rename.source.filePath(u"photo.jpg"_s));
    QVERIFY(destination.folder().isEmpty());
    drop(destination, rename.destination.path());
    QCOMPARE(destination.folder(), rename.destination.path());
    QVERIFY(rename.start().isEnabled());
    QVERIFY(rename.start().toolTip().isEmpty());

    QVERIFY(rename.destination.remove());
    rename.start().click();
    QVERIFY(!rename.start().isEnabled());
    QVERIFY(rename.says(obstacleText(RenameObstacle::destinationGone)));
}

void TestRenameView::watchedDestinationIsRefused()
{
    Rename rename;
    rename.show();
    rename.chooseFolders();
    QVERIFY(rename.start().isEnabled());
    rename.watcher->startWatching(rename.destination.path());
    QVERIFY(!rename.start().isEnabled());
    QVERIFY(rename.says(obstacleText(RenameObstacle::destinationWatched)));
    rename.watcher->stopWatching();
    QVERIFY(rename.start().isEnabled());
}

void TestRenameView::runIsGivenUp()
{
    QSemaphore readings;
    QSemaphore gate;
    Rename rename;
    rename.readFolder = [&](const QString&, const QSet<QString>&, const ReadingControl&) {
        readings.release();
        gate.acquire();
        return FolderMetadata{QList<SubjectAndDate>(5, {u"a.CR3"_s, u"Noord"_s, {}})};
    };
    rename.show();
    rename.chooseFolders();
    auto* const progress = rename.view->findChild<TaskProgress*>();
    auto* const giveUp = progress->findChild<QPushButton*>(u"giveUp"_s);
    for (int run = 0; run < 2; ++run) {
        rename.start().click();
        QVERIFY(progress->isVisible() && !rename.start().isEnabled());
        QVERIFY(giveUp->isEnabled());
        readings.acquire();
        giveUp->click();
        QVERIFY(!giveUp->isEnabled());  // until the next run
        gate.release();
        QTRY_VERIFY(rename.start().isEnabled());
        QVERIFY(!progress->isVisible());
        QVERIFY(rename.says(u"0 hernoemd, 0 overgeslagen."_s));
        QVERIFY(rename.says(u"Gestopt: 0 van 5 bestanden gedaan."_s));
    }
}

/// With the real tool and real photos, by the keyboard.
void TestRenameView::taggedPhotosAreCopied()
{
    ExifToolService tool;
    Rename rename;
    rename.readFolder = [&tool](const QString& in, const QSet<QString>& extensions,
                                const ReadingControl& control) {
        return tool.readSubjectsAndDates(in, extensions, control);
    };
    const samples::PhotoOptions options = samples::plainPhoto(QSize(16, 16));
    const QString photo = rename.source.filePath(u"IMG_1.NEF"_s);
    writeFile(photo, samples::nefPhoto(options));
    QCOMPARE(QProcess::execute(u"/usr/bin/exiftool"_s, {u"-q"_s, u"-overwrite_original"_s,
                                                        u"-XMP:Subject=Set 12, Noord, Jas"_s, photo}),
             0);
    writeFile(rename.source.filePath(u"IMG_2.arw"_s), samples::arwPhoto(options));
    rename.show();
    rename.chooseFolders();
    QVERIFY(QTest::qWaitForWindowActive(rename.view.get()));
    rename.start().setFocus();
    QTest::keyClick(&rename.start(), Qt::Key_Space);
    QTRY_VERIFY_WITH_TIMEOUT(rename.says(u"1 hernoemd, 1 overgeslagen."_s), 30'000);
    QStringList lines = rename.lines();
    lines.sort();
    QCOMPARE(lines, QStringList({u"IMG_1.NEF → Noord, Jas_01.NEF"_s,
                                 u"IMG_2.arw — geen naam in metadata gevonden"_s}));
    QCOMPARE(QDir(rename.destination.path()).entryList(QDir::Files), QStringList(u"Noord, Jas_01.NEF"_s));
    rename.list->setFocus();
    QTest::keyClick(rename.list, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(rename.list, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), rename.lines().join(u'\n'));
}

MORVAK_TEST(TestRenameView);
#include "test_rename_view.moc"
