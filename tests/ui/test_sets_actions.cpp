#include "UiFixture.h"
#include "support/TestMain.h"
#include "ui/blocks/SheetFrame.h"
#include "ui/main/MainView.h"
#include "ui/sets/BacklogBar.h"
#include "ui/sets/SearchField.h"
#include "ui/sets/SetEdits.h"
#include "ui/sets/SetTexts.h"
#include "ui/sets/SetsActions.h"
#include "ui/sets/SetsView.h"
#include "ui/sets/ShootExport.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

Q_DECLARE_METATYPE(morvak::SetsAction)
Q_DECLARE_METATYPE(morvak::SetsFacts)

namespace {

/// The window on its Sets tab, with a shoot of two sets of which "2" is active.
class Studio : public UiFixture {
public:
    Studio()
    {
        store.createShoot(u"Ibiza"_s, {}, u"velora"_s);
        for (const QString& text : {u"SET:1\nBRAND:Noord"_s, u"SET:2\nBRAND:Velora"_s})
            watcher->setCurrentSet(store.handleScanInput(text));
        window = std::make_unique<MainView>(ui);
        window->show();
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(window.get());
    }

    [[nodiscard]] QAbstractButton& button(const QString& name) const
    {
        return *window->findChild<QAbstractButton*>(name);
    }
    [[nodiscard]] const SetData& set(int at) const { return store.shoots().constFirst().sets[at]; }
    [[nodiscard]] bool tells(const QString& text) const
    {
        return !shownTexts(*window).filter(text).isEmpty();
    }
    [[nodiscard]] SheetFrame* sheet() const
    {
        return qobject_cast<SheetFrame*>(QApplication::activeModalWidget());
    }
    void drop(const QStringList& paths) const
    {
        QMimeData dragged;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.append(QUrl::fromLocalFile(path));
        dragged.setUrls(urls);
        auto& tab = *window->findChild<SetsView*>();
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&tab, &enter);
        QDropEvent event({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(enter.isAccepted() ? static_cast<QWidget*>(&tab) : window.get(), &event);
    }

    std::unique_ptr<MainView> window;
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class TestSetsActions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reasonsAgainst_data();
    void reasonsAgainst();
    void textsAndNames();
    void buttonsOpenTheirSheets_data();
    void buttonsOpenTheirSheets();
    void editKeepsWhatHappenedMeanwhile();
    void newSetTakesTheNextNumber();
    void deletedSetTagsNoMorePhotos();
    void exportsAreWrittenAndTold_data();
    void exportsAreWrittenAndTold();
    void existingPhotosAreTaggedAndTold();
    void resultWaitsForTheSheet();
    void droppedCsvIsImported();
    void searchIsUsedByKeys();
    void tabWalksInReadingOrder();
};

void TestSetsActions::reasonsAgainst_data()
{
    using enum SetsAction;
    const SetsFacts none;
    const SetsFacts shoot{
        .hasShoot = true, .hasFolder = false, .folderMissing = false, .isProcessing = false};
    const SetsFacts folder{
        .hasShoot = true, .hasFolder = true, .folderMissing = false, .isProcessing = false};
    const SetsFacts missing{
        .hasShoot = true, .hasFolder = true, .folderMissing = true, .isProcessing = false};
    const SetsFacts busy{.hasShoot = true, .hasFolder = true, .folderMissing = false, .isProcessing = true};
    QTest::addColumn<SetsAction>("action");
    QTest::addColumn<SetsFacts>("facts");
    QTest::addColumn<QString>("reason");
    for (const SetsAction action : {newShoot, clients, qrGenerator, bulkExport, catalog, openShootFile})
        QTest::addRow("always, %d", int(action)) << action << none << QString();
    for (const SetsAction action :
         {deleteShoot, importCsv, exportCsv, exportJson, newSet, saveShootFile, processExisting})
        QTest::addRow("needs a shoot, %d", int(action)) << action << none << u"eerst een shoot"_s;
    for (const SetsAction action : {deleteShoot, importCsv, exportCsv, exportJson, newSet, saveShootFile})
        QTest::addRow("has a shoot, %d", int(action)) << action << shoot << QString();
    QTest::newRow("needs a folder") << processExisting << shoot << u"nog geen watch folder"_s;
    QTest::newRow("has a folder") << processExisting << folder << QString();
    QTest::newRow("the folder is away") << processExisting << missing << u"niet te vinden"_s;
    QTest::newRow("runs already") << processExisting << busy << u"worden al verwerkt"_s;
}

void TestSetsActions::reasonsAgainst()
{
    QFETCH(SetsAction, action);
    QFETCH(SetsFacts, facts);
    QFETCH(QString, reason);
    const QString found = SetsActionTexts::reasonAgainst(action, facts);
    QCOMPARE(found.isEmpty(), reason.isEmpty());
    QVERIFY2(found.contains(reason), qPrintable(found));
    if (!found.isEmpty())
        QCOMPARE(SetsActionTexts::toolTip(action, facts), found);
}

void TestSetsActions::textsAndNames()
{
    QCOMPARE(SetsActionTexts::toolTip(SetsAction::openShootFile, {}),
             u"Open een .morvak-bestand, bijv. een shoot voorbereid in Morvak Prep (Ctrl+O)"_s);
    Shoot shoot;
    shoot.name = u"A/%1 \"B\""_s;
    shoot.sets = {SetData(), SetData()};
    QCOMPARE(proposedFileName(ShootExport::csv, shoot), u"A/%1 \"B\".csv"_s);
    QCOMPARE(proposedFileName(ShootExport::json, std::nullopt), u"sets.json"_s);
    QCOMPARE(proposedFileName(ShootExport::shootFile, shoot), u"A/%1 \"B\".morvak"_s);
    QCOMPARE(SetTexts::deleteTitle(shoot), u"Shoot \"A/%1 \"B\"\" verwijderen?"_s);
    QCOMPARE(SetTexts::deleteMessage(shoot),
             u"Dit verwijdert de shoot en alle 2 sets erin. Al getagde foto's blijven ongewijzigd, "
             "alleen de gegevens in Morvak verdwijnen."_s);
    QCOMPARE(SetTexts::backlogResult({}), u"Geen nog-ongetagde bestanden gevonden."_s);
    QCOMPARE(SetTexts::backlogResult({7, 4, 3}),
             u"7 gevonden, 4 getagd, 3 overgeslagen (geen actieve set op dat tijdstip — zie het log)."_s);
    const QStringList brands{u"Noord"_s, u"VELORA"_s, u"Velora"_s};
    QCOMPARE(brandOfClient(brands, u"velora"_s), u"VELORA"_s);
    QCOMPARE(brandOfClient(brands, {}), QString());
}

void TestSetsActions::buttonsOpenTheirSheets_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("sheet");
    QTest::newRow("shoot") << u"newShoot"_s << QByteArray("morvak::NewShootSheet");
    QTest::newRow("clients") << u"clients"_s << QByteArray("morvak::ClientsSheet");
    QTest::newRow("import") << u"importCsv"_s << QByteArray("morvak::ImportSheet");
    QTest::newRow("cards") << u"bulkExport"_s << QByteArray("morvak::BulkQRExportSheet");
    QTest::newRow("catalog") << u"catalog"_s << QByteArray("morvak::CatalogSheet");
    QTest::newRow("set") << u"newSet"_s << QByteArray("morvak::NewSetSheet");
}

void TestSetsActions::buttonsOpenTheirSheets()
{
    QFETCH(QString, button);
    Studio studio;
    studio.button(button).setFocus();
    studio.button(button).click();
    QVERIFY(studio.sheet());
    QTEST(QByteArray(studio.sheet()->metaObject()->className()), "sheet");
    studio.button(button).click();  // before the window has heard of the first
    QCOMPARE(studio.window->findChildren<SheetFrame*>().size(), 1);
    studio.sheet()->reject();
    QTRY_VERIFY(studio.window->findChildren<SheetFrame*>().isEmpty());
    QTRY_COMPARE(studio.window->focusWidget()->objectName(), u"scanField"_s);
}

void TestSetsActions::editKeepsWhatHappenedMeanwhile()
{
    Studio studio;
    const SetData before = studio.set(0);
    QSignalSpy banner(&*studio.watcher, &FolderWatcher::justActivatedHeadlineChanged);
    studio.store.incrementTagCount(before.id);
    SetFields fields{.setNumber = u"2B"_s,
                     .brand = u"Orva"_s,
                     .model = {},
                     .location = {},
                     .email = {},
                     .items = {SetItem(), *SetItem::parse(u"Jas/navy"_s)}};
    const int sounds = studio.sounds;
    QVERIFY(saveSetEdit(studio.store, *studio.watcher, before.id, fields));
    const SetData saved = studio.set(0);
    QCOMPARE(saved.headline(), u"Set 2B — Orva"_s);
    QCOMPARE(saved.description(), u"Jas navy"_s);
    QCOMPARE(saved.id, before.id);
    QCOMPARE(saved.taggedCount, 1);
    QCOMPARE(studio.watcher->currentSet()->headline(), saved.headline());
    QVERIFY(banner.isEmpty());
    QCOMPARE(studio.sounds, sounds);

    // Another set's edit leaves what photos get alone; a set that is gone is not brought back.
    QVERIFY(saveSetEdit(studio.store, *studio.watcher, studio.set(1).id, fields));
    QCOMPARE(studio.watcher->currentSet()->id, before.id);
    studio.store.deleteSet(before.id);
    QVERIFY(!saveSetEdit(studio.store, *studio.watcher, before.id, fields));
    QCOMPARE(studio.store.shoots().constFirst().sets.size(), 1);
}

void TestSetsActions::newSetTakesTheNextNumber()
{
    Studio studio;
    auto& list = *studio.window->findChild<QListView*>(u"setList"_s);
    auto& search = *studio.window->findChild<QLineEdit*>(u"searchField"_s);
    search.setText(u"velora"_s);
    QCOMPARE(list.model()->rowCount(), 1);
    QTest::keyClick(studio.window.get(), Qt::Key_N, Qt::ControlModifier);
    QVERIFY(studio.sheet());
    studio.sheet()->accept();
    QCOMPARE(studio.set(0).setNumber, u"3"_s);
    QCOMPARE(studio.set(0).taggedCount, 0);
    // It is shown, whatever was being looked for.
    QVERIFY(search.text().isEmpty());
    QCOMPARE(list.currentIndex().row(), 0);
    studio.store.deleteShoot(*studio.store.activeShootId());
    QVERIFY(!addNewSet(studio.store, {}));
}

void TestSetsActions::deletedSetTagsNoMorePhotos()
{
    Studio studio;
    auto& list = *studio.window->findChild<QListView*>(u"setList"_s);
    const auto deleteRow = [&list](int row) {
        list.setCurrentIndex(list.model()->index(row, 0));
        QTest::keyClick(&list, Qt::Key_Delete);
    };
    deleteRow(1);
    QCOMPARE(studio.dialogs.asked.constFirst(), u"Set \"1\" verwijderen?"_s);
    QCOMPARE(studio.store.shoots().constFirst().sets.size(), 2);  // the user said no
    studio.dialogs.confirms = true;
    deleteRow(1);
    QCOMPARE(studio.watcher->currentSet()->setNumber, u"2"_s);
    QVERIFY(!studio.dialogs.asked[1].contains(u"Nieuwe foto's"_s));
    deleteRow(0);
    QVERIFY(studio.dialogs.asked[1].contains(u"Nieuwe foto's"_s));
    QVERIFY(!studio.watcher->currentSet());

    studio.watcher->setCurrentSet(studio.store.handleScanInput(u"SET:3"_s));
    studio.button(u"deleteShoot"_s).click();
    QCOMPARE(studio.dialogs.asked.constFirst(), u"Shoot \"Ibiza\" verwijderen?"_s);
    QVERIFY(studio.store.shoots().isEmpty());
    QVERIFY(!studio.watcher->currentSet());
    QVERIFY(!studio.button(u"deleteShoot"_s).isEnabled());
    QCOMPARE(studio.button(u"exportCsv"_s).toolTip(), u"Maak of kies eerst een shoot."_s);
}

void TestSetsActions::exportsAreWrittenAndTold_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("name");
    QTest::newRow("csv") << u"exportCsv"_s << u"Ibiza.csv"_s;
    QTest::newRow("json") << u"exportJson"_s << u"Ibiza.json"_s;
    QTest::newRow("shoot file") << u"saveShootFile"_s << u"Ibiza.morvak"_s;
}

void TestSetsActions::exportsAreWrittenAndTold()
{
    QFETCH(QString, button);
    QFETCH(QString, name);
    Studio studio;
    studio.button(button).click();
    QCOMPARE(studio.dialogs.asked.constFirst(), name);
    QVERIFY(!studio.tells(u"bewaard"_s));  // the user cancelled

    studio.dialogs.saved = studio.data.filePath(name);
    studio.button(button).click();
    QVERIFY(studio.tells(name + u" is bewaard."_s));
    const QUuid shoot = *studio.store.activeShootId();
    QCOMPARE(contentOf(studio.dialogs.saved), name.endsWith(u"csv"_s) ? studio.store.exportCSV(shoot).toUtf8()
                                                                      : *studio.store.exportJSON(shoot));
    studio.dialogs.saved = studio.data.filePath(u"nergens/"_s + name);
    studio.button(button).click();
    QVERIFY(studio.tells(name + u" kon niet bewaard worden."_s));
}

void TestSetsActions::existingPhotosAreTaggedAndTold()
{
    Studio studio;
    auto& button = studio.button(u"processExisting"_s);
    QVERIFY(!button.isEnabled());
    studio.put(u"a.jpg"_s);
    QFile old(studio.put(u"old.jpg"_s));
    QVERIFY(old.open(QFile::ReadWrite));
    QVERIFY(old.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(12, 0)), QFile::FileModificationTime));
    old.close();
    studio.holdReading(u"a.jpg"_s);
    studio.watcher->startWatching(studio.folder.path());
    QTRY_VERIFY(button.isEnabled());
    button.setFocus();
    button.click();
    QCOMPARE(studio.window->focusWidget()->objectName(), u"scanField"_s);
    QCOMPARE(button.text(), u"Bezig..."_s);
    QVERIFY(!button.isEnabled());
    const auto* const giveUp = studio.window->findChild<BacklogBar*>()->findChild<QWidget*>(u"giveUp"_s);
    QVERIFY(giveUp->isVisible());
    studio.allowReading(u"a.jpg"_s);
    QTRY_COMPARE(studio.dialogs.alerts,
                 QStringList({u"Bestaande bestanden verwerkt"_s, SetTexts::backlogResult({2, 1, 1})}));
    QCOMPARE(button.text(), u"Verwerk bestaande bestanden"_s);
    QVERIFY(!giveUp->isVisible());
    QVERIFY(studio.tells(u"2 sets · 1 foto's getagd"_s));
}

void TestSetsActions::resultWaitsForTheSheet()
{
    Studio studio;
    studio.put(u"a.jpg"_s);
    studio.holdReading(u"a.jpg"_s);
    studio.watcher->startWatching(studio.folder.path());
    auto& button = studio.button(u"processExisting"_s);
    button.click();
    studio.button(u"newShoot"_s).click();
    QVERIFY(studio.sheet());
    studio.allowReading(u"a.jpg"_s);
    QTRY_VERIFY(button.isEnabled());
    QCoreApplication::processEvents();
    QVERIFY(studio.dialogs.alerts.isEmpty());
    studio.sheet()->reject();
    QTRY_COMPARE(studio.dialogs.alerts.size(), 2);
}

void TestSetsActions::droppedCsvIsImported()
{
    Studio studio;
    const QString csv = studio.put(u"sets.CSV"_s, "Set;Merk\n1;Noord\n");
    studio.drop({csv, csv});
    QTRY_VERIFY(studio.tells(u"één CSV-bestand"_s));
    studio.drop({csv});
    QTRY_VERIFY(studio.sheet());
    QCOMPARE(studio.sheet()->metaObject()->className(), "morvak::ImportSheet");
    studio.sheet()->reject();

    // Two shoot files, of which one is damaged.
    const QString good = studio.data.filePath(u"goed.morvak"_s);
    studio.dialogs.saved = good;
    studio.button(u"saveShootFile"_s).click();
    studio.drop({studio.put(u"stuk.morvak"_s, "{"), good});
    QTRY_COMPARE(studio.store.shoots().size(), 2);
    QCOMPARE(studio.dialogs.alerts.size(), 2);

    while (studio.store.activeShootId())
        studio.store.deleteShoot(*studio.store.activeShootId());
    studio.drop({csv});
    QTRY_VERIFY(studio.tells(u"Maak of kies eerst een shoot."_s));
    QVERIFY(!studio.sheet());
}

void TestSetsActions::searchIsUsedByKeys()
{
    Studio studio;
    studio.window->setSelectedTab(3);
    QTest::keyClick(studio.window.get(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(studio.window->selectedTab(), 0);
    const auto focused = [] { return QApplication::focusWidget(); };
    QCOMPARE(focused()->objectName(), u"searchField"_s);
    QTest::keyClicks(focused(), u"zzz"_s);
    QTRY_VERIFY(studio.button(u"showAllSets"_s).isVisible());
    QTest::keyClick(focused(), Qt::Key_Escape);
    QTest::keyClicks(focused(), u"noord"_s);
    QTRY_VERIFY(studio.button(u"clearSearch"_s).isVisible());
    QTest::keyClick(focused(), Qt::Key_Down);
    QCOMPARE(focused()->objectName(), u"setList"_s);
    QTest::keyClick(focused(), Qt::Key_Return);
    QTRY_COMPARE(studio.watcher->currentSet()->setNumber, u"1"_s);
    QVERIFY(studio.button(u"clearSearch"_s).isVisible());
    studio.store.createShoot(u"Herfst"_s, {}, {});
    QVERIFY(!studio.button(u"clearSearch"_s).isVisible());
    studio.store.deleteShoot(*studio.store.activeShootId());
    // Without a shoot, a key tells what its button would.
    studio.store.deleteShoot(*studio.store.activeShootId());
    QTest::keyClick(studio.window.get(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(studio.tells(u"Maak of kies eerst een shoot."_s));
    QSignalSpy qrGenerator(studio.window.get(), &MainView::qrGeneratorAsked);
    studio.button(u"qrGenerator"_s).click();
    QCOMPARE(qrGenerator.size(), 1);
}

void TestSetsActions::tabWalksInReadingOrder()
{
    Studio studio;
    QStringList walked;
    studio.window->findChild<QWidget*>(u"shootPicker"_s)->setFocus();
    while (walked.size() < 40 && (walked.isEmpty() || walked.constLast() != u"setList"_s)) {
        QWidget* const here = QApplication::focusWidget();
        walked.append(here->objectName());
        QTest::keyClick(here, Qt::Key_Tab);
        QTRY_VERIFY(QApplication::focusWidget() != here);  // a scanner's Tab would look the same at first
    }
    const QStringList order{u"shootPicker"_s,   u"newShoot"_s,  u"deleteShoot"_s,  u"clients"_s,
                            u"importCsv"_s,     u"exportCsv"_s, u"exportJson"_s,   u"qrGenerator"_s,
                            u"bulkExport"_s,    u"catalog"_s,   u"newSet"_s,       u"openShootFile"_s,
                            u"saveShootFile"_s, u"scanField"_s, u"activateScan"_s, u"searchField"_s,
                            u"setList"_s};
    QCOMPARE(walked, order);
}

MORVAK_TEST(TestSetsActions);
#include "test_sets_actions.moc"
