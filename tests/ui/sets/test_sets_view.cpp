#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/scan/ScanField.h"
#include "ui/sets/SetsView.h"
#include "ui/shoots/NewShootSheet.h"
#include "ui/shoots/ShootFiles.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QListView>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

class Sets : public UiFixture {
public:
    Sets()
    {
        view = std::make_unique<SetsView>(ui);
        view->resize(900, 500);
        view->show();
    }

    template <typename Widget>
    Widget& find(const QString& name) const
    {
        return *view->findChild<Widget*>(name);
    }

    std::unique_ptr<SetsView> view;
};

}  // namespace

class TestSetsView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newShootIsEnteredByKeys();
    void pastedLinesStayOneScan();
    void everyWayOfWritingASetTextSurvivesTheField_data();
    void everyWayOfWritingASetTextSurvivesTheField();
    void unusableTextStaysAndIsTold();
    void pickedShootBecomesActive();
    void shootFilesAreOpenedOrTold();
};

void TestSetsView::newShootIsEnteredByKeys()
{
    Sets sets;
    QVERIFY(shownTexts(*sets.view).contains(u"Maak een shoot aan om te beginnen"_s));
    sets.store.createShoot(u"Eerste"_s, {}, u"Velora"_s);
    sets.find<QPushButton>(u"newShoot"_s).click();
    auto* const sheet = sets.view->findChild<NewShootSheet*>();
    QVERIFY(sheet);
    QVERIFY(QTest::qWaitForWindowActive(sheet));
    const QStringList expected{u"Nieuwe Shoot"_s,
                               u"Naam (bijv. Ibiza Zomer 2026)"_s,
                               u"Locatie (optioneel)"_s,
                               u"Klant (optioneel)"_s,
                               u"Annuleer"_s,
                               u"Aanmaken"_s};
    for (const QString& text : expected)
        QVERIFY2(shownTexts(*sheet).contains(text), qPrintable(text));
    const auto focused = [] { return QApplication::focusWidget(); };
    QTRY_COMPARE(focused()->objectName(), u"shootName"_s);
    QTest::keyClick(focused(), Qt::Key_Return);  // no name yet
    QVERIFY(sheet->isVisible());
    QTest::keyClicks(focused(), u" Ibiza "_s);
    QTest::keyClick(focused(), Qt::Key_Tab);
    QTest::keyClicks(focused(), u"Strand"_s);
    QTest::keyClick(focused(), Qt::Key_Tab);
    QCOMPARE(sheet->findChild<QComboBox*>(u"shootClient"_s)->currentText(), u"Geen klant"_s);
    QTest::keyClick(focused(), Qt::Key_Down);
    QTest::keyClick(focused(), Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(sets.store.shoots().size(), 2);
    const Shoot shoot = *sets.store.activeShoot();
    QCOMPARE(QStringList({shoot.name, shoot.location, shoot.client}),
             QStringList({u" Ibiza "_s, u"Strand"_s, u"Velora"_s}));
    QCOMPARE(sets.find<QComboBox>(u"shootPicker"_s).currentText(), u" Ibiza "_s);
}

void TestSetsView::pastedLinesStayOneScan()
{
    Sets sets;
    sets.store.createShoot(u"Herfst"_s, {}, {});
    auto& field = sets.find<ScanField>(u"scanField"_s);
    field.setFocus();
    QApplication::clipboard()->setText(u"SET:12\r\nBRAND:Noord | Zuid\nITEM:Chino\n"_s);
    field.paste();
    QCOMPARE(field.text().remove(QChar(0x2060)), u"SET:12 | BRAND:Noord | Zuid | ITEM:Chino | "_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(sets.watcher->currentSet());
    const SetData set = *sets.watcher->currentSet();
    QCOMPARE(set.headline(), u"Set 12 — Noord | Zuid"_s);
    QCOMPARE(set.description(), u"Chino"_s);
    QCOMPARE(sets.store.activeSetId(), set.id);
    QVERIFY(field.text().isEmpty());
    QCOMPARE(sets.find<QListView>(u"setList"_s).model()->rowCount(), 1);
}

void TestSetsView::everyWayOfWritingASetTextSurvivesTheField_data()
{
    QTest::addColumn<QString>("entered");
    QTest::addColumn<QString>("lines");
    QTest::newRow("one line") << u"SET:1"_s << u"SET:1"_s;
    QTest::newRow("CR LF") << u"SET:1\r\nBRAND:A"_s << u"SET:1\nBRAND:A"_s;
    QTest::newRow("line and paragraph separators") << u"a\u2028b\u2029c"_s << u"a\nb\nc"_s;
    QTest::newRow("empty lines") << u"\n\na\n"_s << u"\n\na\n"_s;
    QTest::newRow("a bar is text") << u"BRAND:A | B"_s << u"BRAND:A | B"_s;
}

void TestSetsView::everyWayOfWritingASetTextSurvivesTheField()
{
    QFETCH(QString, entered);
    ScanField field;
    field.insert(entered);
    QTEST(field.scanText(), "lines");
}

void TestSetsView::unusableTextStaysAndIsTold()
{
    Sets sets;
    auto& field = sets.find<ScanField>(u"scanField"_s);
    QTest::keyClicks(&field, u"MODEL:Anna"_s);
    sets.find<QPushButton>(u"activateScan"_s).click();
    QVERIFY(!sets.watcher->currentSet());
    QCOMPARE(field.text(), u"MODEL:Anna"_s);
    QVERIFY(!shownTexts(*sets.view).filter(u"Geen set herkend"_s).isEmpty());
}

void TestSetsView::pickedShootBecomesActive()
{
    Sets sets;
    auto& picker = sets.find<QComboBox>(u"shootPicker"_s);
    QCOMPARE(picker.placeholderText(), u"Geen shoot geselecteerd"_s);
    QCOMPARE(picker.currentIndex(), -1);
    sets.store.createShoot(u"Zelfde naam"_s, {}, {});
    const QUuid older = *sets.store.activeShootId();
    sets.store.createShoot(u"Zelfde naam"_s, {}, {});
    QCOMPARE(picker.currentIndex(), 0);
    picker.setFocus();
    QTest::keyClick(&picker, Qt::Key_Down);
    QCOMPARE(sets.store.activeShootId(), older);
    QCOMPARE(picker.currentIndex(), 1);
    sets.store.deleteShoot(older);
    QCOMPARE(picker.count(), 1);
    QCOMPARE(picker.currentIndex(), 0);
}

void TestSetsView::shootFilesAreOpenedOrTold()
{
    Sets sets;
    sets.store.createShoot(u"Herfst"_s, {}, {});
    sets.store.handleScanInput(u"SET:1"_s);
    const QString path = sets.path(u"herfst.morvak"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(*sets.store.exportJSON(*sets.store.activeShootId()));
    file.close();
    sets.dialogs.file = path;
    sets.view->perform(SetsAction::openShootFile);
    QCOMPARE(sets.store.shoots().size(), 2);
    QVERIFY(sets.dialogs.alerts.isEmpty());

    const QStringList told{u"Kon .morvak-bestand niet openen"_s,
                           u"Het bestand kon niet gelezen worden, mogelijk beschadigd of geen geldig "
                           ".morvak-bestand."_s};
    for (const QString& unreadable :
         {sets.put(u"x.morvak"_s, "[]"), sets.folder.path(), sets.path(u"none.morvak"_s)}) {
        sets.dialogs.alerts.clear();
        openShootFile(sets.ui, unreadable, sets.view.get());
        QCOMPARE(sets.dialogs.alerts, told);
    }
    QCOMPARE(sets.store.shoots().size(), 2);
}

MORVAK_TEST(TestSetsView);
#include "test_sets_view.moc"
