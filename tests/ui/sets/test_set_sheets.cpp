#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/ItemRows.h"
#include "ui/catalog/ClientsSheet.h"
#include "ui/sets/CatalogPickerMenu.h"
#include "ui/sets/ImportSheet.h"
#include "ui/sets/SetSheet.h"
#include "ui/shoots/NewShootSheet.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

class Sheets : public UiFixture {
public:
    Sheets()
    {
        window.resize(700, 500);
        window.show();
        store.createShoot(u"Herfst"_s, {}, u"velora"_s);
    }

    QWidget window;
};

bool open(SheetFrame& sheet)
{
    sheet.open();
    sheet.activateWindow();
    return QTest::qWaitForWindowActive(&sheet);
}

/// Types into what has the focus, and goes on with Tab.
void typeAndTab(const QString& text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

QStringList joinedItems(const QList<SetItem>& items)
{
    QStringList joined;
    for (const SetItem& item : items)
        joined.append(item.joined(u'/'));
    return joined;
}

QStringList entries(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* entry : menu.actions())
        texts.append(entry->text());
    return texts;
}

/// What a menu shows when it is opened.
QMenu& opened(QMenu& menu)
{
    Q_EMIT menu.aboutToShow();
    return menu;
}

QMenu& submenu(const QMenu& menu, const QString& text)
{
    for (const QAction* entry : menu.actions()) {
        if (entry->text() == text && entry->menu())
            return opened(*entry->menu());
    }
    qFatal("no submenu %s", qPrintable(text));
}

}  // namespace

class TestSetSheets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newSetIsEnteredByKeys();
    void editedSetKeepsWhatTheSheetDoesNotShow();
    void linesPastedIntoAFieldBecomeOne();
    void rowsAreRemovedAndTabbedInReadingOrder();
    void focusedRowOfManyIsInSight();
    void pickedProductBecomesAnItem();
    void menuOfTheCatalog();
    void clientsBrandStandsFirst_data();
    void clientsBrandStandsFirst();
    void newShootFollowsTheClients();
    void textIsImportedOnce();
    void filesToImport_data();
    void filesToImport();
};

void TestSetSheets::newSetIsEnteredByKeys()
{
    Sheets sheets;
    NewSetSheet sheet(sheets.ui, &sheets.window);
    const QStringList texts{u"Nieuwe Set"_s,    u"Set nummer"_s,         u"Merk"_s,     u"Model"_s,
                            u"Locatie"_s,       u"E-mail (optioneel)"_s, u"Items"_s,    u"+ Item"_s,
                            u"Uit catalogus"_s, u"Annuleer"_s,           u"Toevoegen"_s};
    for (const QString& text : texts)
        QVERIFY2(shownTexts(sheet).contains(text), qPrintable(text));
    QVERIFY(open(sheet));
    QCOMPARE(QApplication::focusWidget()->objectName(), u"setNumber"_s);
    QCOMPARE(sheet.findChild<QLineEdit*>(u"setNumber"_s)->placeholderText(), u"1"_s);
    for (const QString& text : {u"12"_s, u"Noord"_s, u"Anna"_s, u"Studio 2"_s, u"a@b.nl"_s, u"Overshirt"_s})
        typeAndTab(text);
    QTest::keyClicks(QApplication::focusWidget(), u"navy"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), u"Chino"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(sheet.isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(!sheet.isVisible());
    QCOMPARE(sheet.result(), int(QDialog::Accepted));
    const SetData set = withFields(SetData(), sheet.fields());
    QCOMPARE(set.toQRText(),
             u"SET:12\nBRAND:Noord\nITEM:Overshirt/navy\nITEM:Chino\nMODEL:Anna\n"
             "LOCATION:Studio 2\nEMAIL:a@b.nl"_s);
}

void TestSetSheets::editedSetKeepsWhatTheSheetDoesNotShow()
{
    Sheets sheets;
    SetData set = *SetData::parse(u"SET:1\nBRAND:Noord\nITEM:Chino/zand\nMODEL:Anna\nLOCATION:S\nEMAIL:e"_s);
    set.taggedCount = 7;
    EditSetSheet sheet(sheets.ui, set, &sheets.window);
    QVERIFY(shownTexts(sheet).contains(u"Set bewerken"_s) && shownTexts(sheet).contains(u"Opslaan"_s));
    const SetData unchanged = withFields(set, sheet.fields());
    QCOMPARE(unchanged.toQRText(), set.toQRText());
    QCOMPARE(unchanged.id, set.id);
    QCOMPARE(unchanged.taggedCount, 7);
    QVERIFY(unchanged.items[0].id != set.items[0].id);
    sheet.findChild<QLineEdit*>(u"itemName"_s)->clear();
    QVERIFY2(sheet.fields().items.isEmpty(), "a colour alone is no item");
}

void TestSetSheets::linesPastedIntoAFieldBecomeOne()
{
    Sheets sheets;
    NewSetSheet sheet(sheets.ui, &sheets.window);
    QApplication::clipboard()->setText(u" Noord\r\nBRAND:Zuid\n"_s);
    sheet.findChild<QLineEdit*>(u"setBrand"_s)->paste();
    sheet.findChild<QLineEdit*>(u"itemName"_s)->paste();
    QCOMPARE(sheet.fields().brand, u" Noord BRAND:Zuid"_s);
    QCOMPARE(sheet.fields().items[0].name, u" Noord BRAND:Zuid"_s);
}

void TestSetSheets::rowsAreRemovedAndTabbedInReadingOrder()
{
    Sheets sheets;
    const SetData set = *SetData::parse(u"SET:1\nITEM:a\nITEM:b/x\nITEM:c"_s);
    EditSetSheet sheet(sheets.ui, set, &sheets.window);
    QVERIFY(open(sheet));
    sheet.findChildren<QWidget*>(u"removeItem"_s).at(1)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(joinedItems(sheet.fields().items), QStringList({u"a"_s, u"c"_s}));
    QCOMPARE(QApplication::focusWidget()->objectName(), u"removeItem"_s);
    QTest::keyClick(sheet.findChild<QWidget*>(u"appendItem"_s), Qt::Key_Space);
    QTest::keyClicks(QApplication::focusWidget(), u"d"_s);
    QCOMPARE(joinedItems(sheet.fields().items), QStringList({u"a"_s, u"c"_s, u"d"_s}));

    sheet.findChild<QWidget*>(u"setEmail"_s)->setFocus();
    QStringList order;
    for (int i = 0; i < 11; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.append(QApplication::focusWidget()->objectName());
    }
    const QStringList row{u"itemName"_s, u"itemColor"_s, u"removeItem"_s};
    QCOMPARE(order, row + row + row + QStringList({u"appendItem"_s, u"fromCatalog"_s}));
}

void TestSetSheets::focusedRowOfManyIsInSight()
{
    Sheets sheets;
    SetData set;
    for (int i = 0; i < 60; ++i)
        set.items.append({QUuid::createUuid(), QString::number(i), {}});
    EditSetSheet sheet(sheets.ui, set, &sheets.window);
    QVERIFY(open(sheet));
    QVERIFY(sheet.height() <= sheets.window.height());
    const auto isInSight = [&sheet](const QWidget* widget) {
        const QWidget* const viewport = sheet.findChild<QScrollArea*>()->viewport();
        return viewport->rect().contains(QRect(widget->mapTo(viewport, QPoint()), widget->size()));
    };
    const auto fields = sheet.findChildren<QLineEdit*>(u"itemName"_s);
    QVERIFY(!isInSight(fields.at(59)));
    fields.at(59)->setFocus();
    QVERIFY(isInSight(fields.at(59)));
    QTest::keyClick(fields.at(59), Qt::Key_Return);
    QWidget* const added = QApplication::focusWidget();
    QVERIFY(added != fields.at(59));
    QTRY_VERIFY(isInSight(added));
    QVERIFY(sheet.height() <= sheets.window.height());
}

void TestSetSheets::pickedProductBecomesAnItem()
{
    Sheets sheets;
    sheets.catalog.addProduct(u"coated pants"_s, {u"brown"_s, u"navy"_s}, u"Velora"_s);
    NewSetSheet sheet(sheets.ui, &sheets.window);
    QVERIFY(open(sheet));
    auto* const menu = sheet.findChild<CatalogPickerMenu*>();
    menu->popup({});
    QWidget* shown = menu;
    // Brand, product, second colour.
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}) {
        QTest::keyClick(shown, key);
        if (key == Qt::Key_Right) {
            QTRY_VERIFY(QApplication::activePopupWidget() != shown);
            shown = QApplication::activePopupWidget();
        }
    }
    QCOMPARE(joinedItems(sheet.fields().items), QStringList(u"coated pants/navy"_s));
    QCOMPARE(sheet.findChildren<QLineEdit*>(u"itemName"_s).size(), 1);
    Q_EMIT menu->picked(u"sweater"_s, {});
    QCOMPARE(joinedItems(sheet.fields().items), QStringList({u"coated pants/navy"_s, u"sweater"_s}));
}

void TestSetSheets::menuOfTheCatalog()
{
    UiFixture fixture;
    CatalogPickerMenu menu(fixture.catalog, u"Velora"_s);
    QCOMPARE(entries(opened(menu)), QStringList(u"Catalogus is leeg"_s));
    QVERIFY(!menu.actions().constFirst()->isEnabled());

    fixture.catalog.addProduct(u"sjaal & muts"_s, {u"a & b"_s, u"rood"_s}, {});
    fixture.catalog.addProduct(QString(200, u'W'), {}, u"Orva"_s);
    fixture.catalog.addBrand(u"velora"_s);
    fixture.catalog.addBrand(u"Algemeen"_s);
    QCOMPARE(entries(opened(menu)), QStringList({u"velora"_s, u"Algemeen"_s, u"Orva"_s, u"Algemeen"_s}));
    const QMenu& general = opened(*menu.actions().constLast()->menu());
    QCOMPARE(entries(general), QStringList(u"sjaal && muts"_s));
    const QMenu& colors = submenu(general, u"sjaal && muts"_s);
    QCOMPARE(entries(colors), QStringList({u"a && b"_s, u"rood"_s, u"Geen kleur"_s}));
    const QAction* const plain = submenu(menu, u"Orva"_s).actions().constFirst();
    QVERIFY(!plain->menu());
    QVERIFY(plain->text().size() < 200);
    QVERIFY(plain->toolTip().contains(QString(200, u'W')));
    QVERIFY(!submenu(menu, u"velora"_s).actions().constFirst()->isEnabled());

    QSignalSpy picked(&menu, &CatalogPickerMenu::picked);
    colors.actions().at(0)->trigger();
    colors.actions().at(2)->trigger();
    const_cast<QAction*>(plain)->trigger();
    QCOMPARE(picked.at(0), QVariantList({u"sjaal & muts"_s, u"a & b"_s}));
    QCOMPARE(picked.at(1), QVariantList({u"sjaal & muts"_s, QString()}));
    QCOMPARE(picked.at(2), QVariantList({QString(200, u'W'), QString()}));
}

void TestSetSheets::clientsBrandStandsFirst_data()
{
    QTest::addColumn<QString>("client");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("no client") << u""_s << QStringList{u"Kestrum"_s, u"Orva"_s, u"Straße"_s, u"Velora"_s};
    QTest::newRow("other case") << u"VELORA"_s
                                << QStringList{u"Velora"_s, u"Kestrum"_s, u"Orva"_s, u"Straße"_s};
    QTest::newRow("part of a name") << u"Velo"_s
                                    << QStringList{u"Kestrum"_s, u"Orva"_s, u"Straße"_s, u"Velora"_s};
    QTest::newRow("not as a language compares")
        << u"Strasse"_s << QStringList{u"Kestrum"_s, u"Orva"_s, u"Straße"_s, u"Velora"_s};
}

void TestSetSheets::clientsBrandStandsFirst()
{
    QFETCH(QString, client);
    QTEST(pickerBrands({u"Kestrum"_s, u"Orva"_s, u"Straße"_s, u"Velora"_s}, client), "order");
}

void TestSetSheets::newShootFollowsTheClients()
{
    Sheets sheets;
    sheets.catalog.addClient(u"Noord"_s);
    NewShootSheet sheet(sheets.ui, &sheets.window);
    QVERIFY(open(sheet));
    auto* const picker = sheet.findChild<QComboBox*>(u"shootClient"_s);
    const auto choices = [picker] {
        QStringList texts;
        for (int i = 0; i < picker->count(); ++i)
            texts.append(picker->itemText(i));
        return texts;
    };
    QCOMPARE(choices(), QStringList({u"Geen klant"_s, u"Noord"_s, u"velora"_s}));
    picker->setCurrentIndex(1);
    sheet.findChild<QPushButton*>(u"manageClients"_s)->click();
    auto* const clients = sheet.findChild<ClientsSheet*>();
    QVERIFY(clients && QTest::qWaitForWindowActive(clients));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), u"newClient"_s);
    QVERIFY2(clients->height() > sheet.height(), "the room is that of the window under both");
    QTest::keyClicks(QApplication::focusWidget(), u"Geen klant"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(choices(), QStringList({u"Geen klant"_s, u"Geen klant"_s, u"Noord"_s, u"velora"_s}));
    QCOMPARE(sheet.shoot().client, u"Noord"_s);
    sheets.catalog.deleteClient(u"Noord"_s);
    QCOMPARE(sheet.shoot().client, QString());
    picker->setCurrentIndex(1);
    QCOMPARE(sheet.shoot().client, u"Geen klant"_s);
}

void TestSetSheets::textIsImportedOnce()
{
    Sheets sheets;
    const QUuid shoot = *sheets.store.activeShootId();
    ImportSheet sheet(sheets.ui, shoot, &sheets.window);
    QVERIFY(open(sheet));
    auto* const text = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
    QVERIFY(text);
    const auto pressImport = [text] { QTest::keyClick(text, Qt::Key_Return, Qt::ControlModifier); };
    const auto says = [&sheet](const QString& line) { return shownTexts(sheet).contains(line); };
    pressImport();
    QVERIFY2(!says(u"0 sets geïmporteerd"_s), "an empty text is not imported");
    text->setPlainText(u"Set;Merk\n1;Velora\n2;Orva\n"_s);
    pressImport();
    pressImport();
    QVERIFY(sheet.isVisible() && says(u"2 sets geïmporteerd"_s));
    QCOMPARE(sheets.store.activeShoot()->sets.size(), 2);
    text->appendPlainText(u"3;Noord"_s);
    QVERIFY(!says(u"2 sets geïmporteerd"_s));
    sheets.store.deleteShoot(shoot);
    pressImport();
    QVERIFY(says(u"0 sets geïmporteerd"_s));
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!sheet.isVisible());
}

void TestSetSheets::filesToImport_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");  // that stands before as "oud"
    QTest::addColumn<QString>("told");
    QTest::newRow("UTF-8") << QByteArray("Set;Merk\n1;Caf\xC3\xA9\n") << u"Set;Merk\n1;Café\n"_s << u""_s;
    QTest::newRow("byte-order mark") << QByteArray("\xEF\xBB\xBFSet") << u"Set"_s << u""_s;
    QTest::newRow("Windows-1252") << QByteArray("1;Caf\xE9\n") << u"oud"_s << u"UTF-8"_s;
    QTest::newRow("cut in a character") << QByteArray("1;Caf\xC3") << u"oud"_s << u"UTF-8"_s;
    QTest::newRow("UTF-16") << QByteArray(
                                   "\xFF\xFE"
                                   "1\0;\0",
                                   6)
                            << u"oud"_s << u"UTF-8"_s;
    QTest::newRow("a ZIP archive") << QByteArray("PK\x03\x04\x14\0\0\0", 8) << u"oud"_s << u"UTF-8"_s;
    QTest::newRow("empty") << QByteArray() << u"oud"_s << u"is leeg"_s;
}

void TestSetSheets::filesToImport()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    Sheets sheets;
    ImportSheet sheet(sheets.ui, *sheets.store.activeShootId(), &sheets.window, u"oud"_s);
    sheets.dialogs.file = sheets.put(u"sets.csv"_s, bytes);
    sheet.findChild<QPushButton*>(u"chooseImportFile"_s)->click();
    QTEST(sheet.findChild<QPlainTextEdit*>()->toPlainText(), "text");
    const QString result = sheet.findChild<QLabel*>(u"importResult"_s)->text();
    QCOMPARE(result.isEmpty(), told.isEmpty());
    QVERIFY2(result.contains(told), qPrintable(result));
    sheet.takeFile(sheets.path(u"none.csv"_s));
    QVERIFY(sheet.findChild<QLabel*>(u"importResult"_s)->text().contains(u"kan niet gelezen worden"_s));
}

MORVAK_TEST(TestSetSheets);
#include "test_set_sheets.moc"
