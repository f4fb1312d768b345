#include "actions/SetTexts.h"
#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/SheetFrame.h"
#include "ui/main/MainView.h"
#include "ui/sets/SearchField.h"
#include "ui/sets/SetsView.h"
#include "ui/shoots/BacklogBar.h"

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
    void buttonsOpenTheirSheets_data();
    void buttonsOpenTheirSheets();
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
