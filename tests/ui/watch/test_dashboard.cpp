#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/CoalescedCall.h"
#include "ui/base/blocks/DroppedFolder.h"
#include "ui/watch/DashboardTab.h"
#include "ui/watch/WatchState.h"

#include <QCheckBox>
#include <QDir>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

class Dashboard : public UiFixture {
public:
    Dashboard() { tab.show(); }

    template <typename Widget>
    Widget* find(const QString& name) const
    {
        return tab.findChild<Widget*>(name);
    }
    QString status() const { return find<QLabel>(u"watchStatus"_s)->text(); }

    DashboardTab tab{ui};
};

SetData sampleSet()
{
    return *SetData::parse(u"SET:12\nBRAND:Noord\nMODEL:Fenna\nITEM:Overshirt/navy\nITEM:A<B & C"_s);
}

}  // namespace

class TestDashboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsThereFromTheStart();
    void activeSetIsShownWithItsItems();
    void stateInWords_data();
    void stateInWords();
    void chosenFolderIsWatchedWithTheToolRunning();
    void stoppedWatchingIsResumed();
    void folderThatCannotBeWatchedIsTold();
    void withoutAShootOneCanBeMade();
    void togglesFollowAndLead();
    void droppedFolders_data();
    void droppedFolders();
    void onlyAFolderIsTakenOnTheTab();
    void taggedPhotosAndFailuresAreShown();
    void manyChangesAreOneRefresh();
};

void TestDashboard::everyTextIsThereFromTheStart()
{
    const Dashboard dashboard;
    QStringList texts = shownTexts(dashboard.tab);
    texts.append(dashboard.find<QLineEdit>(u"watchPath"_s)->text());
    for (
        const QString& text :
        {u"Watch Folder"_s, u"Geen map geselecteerd"_s, u"Kies map..."_s,
         u"QR-code herkennen in gefotografeerde set-kaart"_s,
         u"Fotografeer een geprinte QR-set-kaart als eerste foto van een nieuwe set, Morvak herkent 'm automatisch en activeert de set."_s,
         u"QR-kaart verwijderen na herkenning"_s,
         u"De kaart-foto gaat dan naar de Prullenbak in plaats van als gewone foto bij de set te blijven staan. Uit = kaart blijft bewaard, bijvoorbeeld voor je eigen administratie."_s,
         u"Actieve Set"_s,
         u"Geen actieve set. Scan een QR-code of voer handmatig in via de 'Handmatige Scan' tab."_s,
         u"Laatst getagd"_s})
        QVERIFY2(texts.contains(text), qPrintable(text));
}

void TestDashboard::activeSetIsShownWithItsItems()
{
    const Dashboard dashboard;
    dashboard.ui.watcher.setCurrentSet(sampleSet());
    const QStringList expected{u"Set 12 — Noord"_s, u"Fenna"_s, u"Overshirt (navy)"_s, u"A<B & C"_s};
    QTRY_COMPARE(shownTexts(*dashboard.find<QWidget>(u"activeSet"_s)), expected);
    SetData withoutModel = sampleSet();
    withoutModel.model.clear();
    withoutModel.items.clear();
    dashboard.ui.watcher.setCurrentSet(withoutModel);
    QTRY_COMPARE(shownTexts(*dashboard.find<QWidget>(u"activeSet"_s)), expected.first(1));
}

void TestDashboard::stateInWords_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("watching");
    QTest::addColumn<bool>("missing");
    QTest::addColumn<bool>("refused");
    QTest::addColumn<QString>("start");
    QTest::addColumn<bool>("resumes");
    QTest::newRow("no folder") << QString() << false << false << false << "Kies de map" << false;
    QTest::newRow("watching") << "/a" << true << false << false
                              << "Actief — nieuwe bestanden worden automatisch getagd" << false;
    QTest::newRow("missing") << "/a" << false << true << false << "Map niet gevonden" << false;
    QTest::newRow("stopped") << "/a" << false << false << false << "Gestopt — nieuwe bestanden" << true;
    QTest::newRow("refused") << "/a" << false << false << true << "Gestopt — deze map kan niet" << true;
}

void TestDashboard::stateInWords()
{
    QFETCH(QString, path);
    QFETCH(bool, watching);
    QFETCH(bool, missing);
    QFETCH(bool, refused);
    QFETCH(QString, start);
    const WatchState state = watchState(path, watching, missing);
    const QString text = statusText(state, refused);
    QVERIFY2(text.startsWith(start), qPrintable(text));
    QTEST(offersResume(state), "resumes");
}

void TestDashboard::chosenFolderIsWatchedWithTheToolRunning()
{
    Dashboard dashboard;
    auto* const choose = dashboard.find<QPushButton>(u"chooseFolder"_s);
    choose->click();
    QCOMPARE(dashboard.foldersOpened, 0);
    dashboard.dialogs.folder = dashboard.folder.path();
    choose->click();
    QCOMPARE(dashboard.dialogs.asked.first(2),
             (QStringList{u"Kies de Capture One import/tethered map"_s, u"Selecteer map"_s}));
    QVERIFY(dashboard.watcher->isWatching());
    QCOMPARE(dashboard.toolStarts, 1);
    QCOMPARE(dashboard.status(), u"Actief — nieuwe bestanden worden automatisch getagd"_s);
    const auto* const path = dashboard.find<QLineEdit>(u"watchPath"_s);
    QCOMPARE(path->accessibleDescription(), dashboard.folder.path());
    QVERIFY(path->toolTip().contains(dashboard.folder.path()));
    QVERIFY(!dashboard.find<QPushButton>(u"resumeWatching"_s)->isVisible());
}

void TestDashboard::stoppedWatchingIsResumed()
{
    Dashboard dashboard;
    auto* const resume = dashboard.find<QPushButton>(u"resumeWatching"_s);
    dashboard.watcher->startWatching(dashboard.folder.path());
    dashboard.watcher->stopWatching();
    QTRY_VERIFY(resume->isVisible());
    QVERIFY(dashboard.status().startsWith(u"Gestopt"_s));
    resume->click();
    QVERIFY(dashboard.watcher->isWatching());
    QCOMPARE(dashboard.watcher->watchPath(), dashboard.folder.path());
    QCOMPARE(dashboard.toolStarts, 1);
    QVERIFY(!resume->isVisible());
}

void TestDashboard::folderThatCannotBeWatchedIsTold()
{
    Dashboard dashboard;
    dashboard.folderCanBeOpened = false;
    dashboard.dialogs.folder = dashboard.folder.path();
    dashboard.find<QPushButton>(u"chooseFolder"_s)->click();
    QCOMPARE(dashboard.status(), statusText(WatchState::stopped, true));
    dashboard.folderCanBeOpened = true;
    dashboard.find<QPushButton>(u"resumeWatching"_s)->click();
    QCOMPARE(dashboard.status(), statusText(WatchState::watching));
    dashboard.watcher->stopWatching();
    QTRY_COMPARE(dashboard.status(), statusText(WatchState::stopped));
}

void TestDashboard::withoutAShootOneCanBeMade()
{
    Dashboard dashboard;
    const auto* const hint = dashboard.find<QWidget>(u"shootHint"_s);
    QVERIFY(hint->isVisible());
    const QSignalSpy asked(&dashboard.tab, &DashboardTab::newShootAsked);
    dashboard.find<QPushButton>(u"newShoot"_s)->click();
    QCOMPARE(asked.size(), 1);
    dashboard.store.createShoot(u"Herfst"_s, {}, {});
    QTRY_VERIFY(!hint->isVisible());
}

void TestDashboard::togglesFollowAndLead()
{
    Dashboard dashboard;
    auto* const detect = dashboard.find<QCheckBox>(u"qrDetectionEnabled"_s);
    auto* const discard = dashboard.find<QCheckBox>(u"deleteQRCardAfterScan"_s);
    QVERIFY(detect->isChecked() && !discard->isChecked());
    detect->click();
    discard->click();
    QVERIFY(!dashboard.watcher->qrDetectionEnabled() && dashboard.watcher->deleteQRCardAfterScan());
    dashboard.watcher->setQrDetectionEnabled(true);
    dashboard.watcher->setDeleteQRCardAfterScan(false);
    QVERIFY(detect->isChecked() && !discard->isChecked());
}

void TestDashboard::droppedFolders_data()
{
    QTest::addColumn<QList<QByteArray>>("urls");  // %1 stands for the folder
    QTest::addColumn<QString>("found");           // below the folder
    QTest::newRow("folder") << QList<QByteArray>{"file://%1/a%20b"} << "/a b";
    QTest::newRow("slash at the end") << QList<QByteArray>{"file://%1/a%20b/"} << "/a b";
    QTest::newRow("file first") << QList<QByteArray>{"file://%1/file", "file://%1/a%20b"} << "/a b";
    QTest::newRow("name in Latin 1") << QList<QByteArray>{"file://%1/%E9"} << QString(u'/') + QChar(0xDCE9);
    QTest::newRow("file") << QList<QByteArray>{"file://%1/file"} << QString();
    QTest::newRow("other computer") << QList<QByteArray>{"file://studio%1/a%20b", "https://studio%1/a%20b"}
                                    << QString();
}

void TestDashboard::droppedFolders()
{
    QFETCH(QList<QByteArray>, urls);
    QFETCH(QString, found);
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"a b"_s);
    QCOMPARE(::mkdir((folder.path().toUtf8() + "/\xE9").constData(), 0700), 0);
    QFile file(folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QMimeData data;
    data.setData(u"text/uri-list"_s, urls.join("\r\n").replace("%1", folder.path().toUtf8()));
    const auto expected = found.isEmpty() ? std::nullopt : std::optional(folder.path() + found);
    QCOMPARE(droppedFolder(data), expected);
    QCOMPARE(::rmdir((folder.path().toUtf8() + "/\xE9").constData()), 0);  // which QTemporaryDir cannot
}

void TestDashboard::onlyAFolderIsTakenOnTheTab()
{
    Dashboard dashboard;
    const auto drop = [&](const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dashboard.tab.viewport(), &enter);
        QDropEvent event({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        if (enter.isAccepted())
            QCoreApplication::sendEvent(dashboard.tab.viewport(), &event);
        return enter.isAccepted();
    };
    QVERIFY(dashboard.tab.viewport()->acceptDrops());
    QVERIFY(!drop(dashboard.put(u"shoot.morvak"_s)));
    QVERIFY(drop(dashboard.folder.path()));
    QCOMPARE(dashboard.watcher->watchPath(), dashboard.folder.path());
    QVERIFY(dashboard.watcher->isWatching());
}

void TestDashboard::taggedPhotosAndFailuresAreShown()
{
    Dashboard dashboard;
    const auto* const failure = dashboard.find<QWidget>(u"lastFailure"_s);
    QVERIFY(!failure->isVisible());
    dashboard.watcher->startWatching(dashboard.folder.path());
    dashboard.watcher->setCurrentSet(sampleSet());
    dashboard.arrive(u"a.jpg"_s);
    QTRY_COMPARE(dashboard.find<QLabel>(u"lastTaggedFile"_s)->text(), u"a.jpg"_s);
    QTRY_COMPARE(dashboard.find<QWidget>(u"recentThumbnails"_s)->accessibleDescription(), u"a.jpg"_s);
    QVERIFY(!failure->isVisible());
    dashboard.watcher->addLog(u"❌ Tagging mislukt: b.jpg"_s, LogType::error);
    QTRY_VERIFY(failure->isVisible());
    QVERIFY(shownTexts(*failure).constFirst().endsWith(u"  Tagging mislukt: b.jpg"_s));
    dashboard.watcher->clearLog();
    QTRY_VERIFY(!failure->isVisible());
}

void TestDashboard::manyChangesAreOneRefresh()
{
    int refreshes = 0;
    bool later = false;
    CoalescedCall call([&] { ++refreshes; }, std::chrono::milliseconds(1));
    for (int i = 0; i < 200; ++i)
        call.ask();
    QCOMPARE(refreshes, 0);
    QTRY_COMPARE(refreshes, 1);
    call.ask();
    QTimer::singleShot(30, this, [&] { later = true; });
    QTRY_VERIFY(later);
    QCOMPARE(refreshes, 2);
}

MORVAK_TEST(TestDashboard);
#include "test_dashboard.moc"
