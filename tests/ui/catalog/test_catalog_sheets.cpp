#include "support/TestMain.h"
#include "support/UiFixture.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/catalog/CatalogImportSheet.h"
#include "ui/catalog/CatalogSheet.h"
#include "ui/catalog/ClientsSheet.h"
#include "ui/catalog/EditProductSheet.h"
#include "ui/catalog/RowList.h"
#include "ui/catalog/RowListModel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace morvak;
using morvak::test::shownTexts;
using morvak::test::UiFixture;

namespace {

template <typename Sheet>
class OpenSheet : public UiFixture {
public:
    /// `fill` prepares the catalog.
    template <typename Argument>
    explicit OpenSheet(
        const Argument& argument, const std::function<void(ProductCatalog&)>& fill = [](ProductCatalog&) {})
    {
        fill(catalog);
        window.resize(700, 500);
        window.show();
        sheet = std::make_unique<Sheet>(ui, argument, &window);
        sheet->open();
        sheet->activateWindow();
        active = QTest::qWaitForWindowActive(sheet.get());
    }

    template <typename Widget>
    Widget& find(const QString& name) const
    {
        return *sheet->template findChild<Widget*>(name);
    }
    void type(const QString& field, const QString& text) const
    {
        find<QLineEdit>(field).setFocus();
        QTest::keyClicks(&find<QLineEdit>(field), text);
    }
    void press(const QString& field, Qt::Key key) const { QTest::keyClick(&find<QWidget>(field), key); }
    [[nodiscard]] QStringList rows(const QString& list) const
    {
        QStringList texts;
        const QAbstractItemModel& model = *find<RowList>(list).model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 0).data().toString());
        return texts;
    }
    [[nodiscard]] bool says(const QString& text) const { return shownTexts(*sheet).contains(text); }

    QWidget window;
    std::unique_ptr<Sheet> sheet;
    bool active = false;
};

using OpenCatalog = OpenSheet<CatalogSheet>;
using OpenClients = OpenSheet<ClientsSheet>;

QStringList choices(const QComboBox& box)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts.append(box.itemText(i));
    return texts;
}

void threeProducts(ProductCatalog& catalog)
{
    catalog.addProduct(u"sweater"_s, {u"blauw"_s, u"rood"_s}, u"Orva"_s);
    catalog.addProduct(u"coated pants"_s, {}, u"Velora"_s);
    catalog.addProduct(u"sjaal"_s, {}, {});
}

const QString noProducts = u"Nog geen producten. Voeg er hieronder een toe of importeer een CSV."_s;
const QString noneOfTheBrand = u"Geen producten voor dit merk."_s;

}  // namespace

class TestCatalogSheets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void productsAreEnteredByKeys();
    void brandsAreAddedChosenAndRemoved();
    void brandsWithNamesOfChoicesAreBrands();
    void productIsEditedAndRemovedByKeys();
    void rowsAreUsedByMouse();
    void tabGoesInReadingOrder();
    void catalogIsExportedOrTold();
    void importClosesByItself();
    void clientsAreAddedAndRemoved();
    void colors_data();
    void colors();
    void enteredBrands_data();
    void enteredBrands();
    void currentRows_data();
    void currentRows();
};

void TestCatalogSheets::productsAreEnteredByKeys()
{
    const OpenCatalog open(u""_s);
    QVERIFY(open.active && open.says(u"Productcatalogus"_s) && open.says(noProducts));
    QCOMPARE(open.find<QComboBox>(u"brandFilter"_s).currentText(), u"Alle merken"_s);
    open.press(u"newName"_s, Qt::Key_Return);
    QVERIFY2(open.catalog.products().isEmpty() && open.sheet->isVisible(), "no name, no product");
    open.type(u"newColors"_s, u"zand, ,navy "_s);
    open.type(u"newName"_s, u"chino"_s);
    open.press(u"newName"_s, Qt::Key_Return);
    QCOMPARE(open.catalog.products().size(), 1);
    const Product product = open.catalog.products().constFirst();
    QCOMPARE(product.name, u"chino"_s);
    QCOMPARE(product.colors, QStringList({u"zand"_s, u"navy"_s}));
    QCOMPARE(product.brand, QString());
    QVERIFY(open.find<QLineEdit>(u"newName"_s).text().isEmpty());
    QVERIFY(open.find<QLineEdit>(u"newColors"_s).text().isEmpty());
    QCOMPARE(open.rows(u"products"_s), QStringList(u"chino"_s));
    QVERIFY(!open.says(noProducts));
    open.press(u"newName"_s, Qt::Key_Escape);
    QVERIFY(!open.sheet->isVisible());
}

void TestCatalogSheets::brandsAreAddedChosenAndRemoved()
{
    const OpenCatalog open(u"Velora"_s, threeProducts);
    auto& filter = open.find<QComboBox>(u"brandFilter"_s);
    const QStringList fixed{u"Alle merken"_s, u"Algemeen"_s};
    QCOMPARE(choices(filter), fixed + QStringList({u"Orva"_s, u"Velora"_s}));
    QCOMPARE(open.rows(u"products"_s), QStringList(u"coated pants"_s));
    QVERIFY(open.find<QWidget>(u"removeBrand"_s).isVisible());

    filter.setFocus();
    QTest::keyClick(&filter, Qt::Key_Home);
    QCOMPARE(open.rows(u"products"_s), QStringList({u"coated pants"_s, u"sjaal"_s, u"sweater"_s}));
    QVERIFY(!open.find<QWidget>(u"removeBrand"_s).isVisible());
    QTest::keyClick(&filter, Qt::Key_Down);
    QCOMPARE(open.rows(u"products"_s), QStringList(u"sjaal"_s));
    QVERIFY(!open.find<QWidget>(u"removeBrand"_s).isVisible());

    open.type(u"newBrand"_s, u"  Kestrum\t"_s);
    open.press(u"newBrand"_s, Qt::Key_Return);
    QCOMPARE(open.catalog.brands(), QStringList(u"Kestrum"_s));
    QCOMPARE(filter.currentText(), u"Kestrum"_s);
    QVERIFY(open.find<QLineEdit>(u"newBrand"_s).text().isEmpty() && open.says(noneOfTheBrand));
    open.type(u"newName"_s, u"riem"_s);
    open.find<QPushButton>(u"addProduct"_s).click();
    QCOMPARE(open.rows(u"products"_s), QStringList(u"riem"_s));

    // The choice stays when its last product goes, and so does the brand when it is taken off the list.
    open.find<RowList>(u"products"_s).setCurrentIndex(open.find<RowList>(u"products"_s).model()->index(0, 0));
    open.press(u"products"_s, Qt::Key_Delete);
    QVERIFY(open.says(noneOfTheBrand));
    QCOMPARE(filter.currentText(), u"Kestrum"_s);
    open.find<QAbstractButton>(u"removeBrand"_s).click();
    QVERIFY(open.catalog.brands().isEmpty());
    QCOMPARE(filter.currentText(), u"Alle merken"_s);
    QCOMPARE(choices(filter), fixed + QStringList({u"Orva"_s, u"Velora"_s}));
}

void TestCatalogSheets::brandsWithNamesOfChoicesAreBrands()
{
    const OpenCatalog open(u""_s, threeProducts);
    for (const QString& brand : {u"__alle__"_s, u"Alle merken"_s, u"Algemeen"_s}) {
        open.type(u"newBrand"_s, brand);
        open.press(u"newBrand"_s, Qt::Key_Return);
        QVERIFY2(open.says(noneOfTheBrand), qPrintable(brand));
        open.type(u"newName"_s, brand);
        open.press(u"newName"_s, Qt::Key_Return);
        QCOMPARE(open.rows(u"products"_s), QStringList(brand));
    }
}

void TestCatalogSheets::productIsEditedAndRemovedByKeys()
{
    const OpenCatalog open(u""_s, threeProducts);
    auto& list = open.find<RowList>(u"products"_s);
    list.setCurrentIndex(list.model()->index(2, 0));
    open.press(u"products"_s, Qt::Key_F2);
    auto* const sheet = open.sheet->findChild<EditProductSheet*>();
    QVERIFY(sheet && QTest::qWaitForWindowActive(sheet));
    auto* const brand = sheet->findChild<QComboBox*>(u"productBrand"_s);
    QCOMPARE(choices(*brand), QStringList({u"Algemeen (alle merken)"_s, u"Orva"_s, u"Velora"_s}));
    QCOMPARE(brand->currentText(), u"Orva"_s);
    QCOMPARE(sheet->findChild<QLineEdit*>(u"productColors"_s)->text(), u"blauw, rood"_s);
    auto* const name = sheet->findChild<QLineEdit*>(u"productName"_s);
    QTRY_COMPARE(QApplication::focusWidget(), name);
    name->clear();
    QTest::keyClick(name, Qt::Key_Return);
    QVERIFY2(sheet->isVisible(), "no product without a name");
    QTest::keyClicks(name, u"aran"_s);
    QTest::keyClick(brand, Qt::Key_Home);
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(open.rows(u"products"_s), QStringList({u"aran"_s, u"coated pants"_s, u"sjaal"_s}));
    const Product edited = open.catalog.products().constFirst();
    QCOMPARE(edited.colors, QStringList({u"blauw"_s, u"rood"_s}));
    QCOMPARE(edited.brand, QString());
    QCOMPARE(list.currentIndex().data().toString(), u"aran"_s);

    open.press(u"products"_s, Qt::Key_Delete);
    QCOMPARE(open.rows(u"products"_s), QStringList({u"coated pants"_s, u"sjaal"_s}));
    QCOMPARE(list.currentIndex().row(), 0);
    QVERIFY(open.sheet->isVisible());
}

void TestCatalogSheets::rowsAreUsedByMouse()
{
    const Theme theme;
    RowAction plain;
    plain.label = u"Bewerken"_s;
    plain.onDoubleClick = true;
    RowAction icon;
    icon.symbol = u"trash"_s;
    RowList list(theme, {plain, icon});
    const QAbstractItemModelTester tester(list.model(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    list.setRows({{u"k1"_s, u"een"_s, {}}, {u"k2"_s, QString(200, u'W'), u"kleur"_s}});
    list.resize(400, 200);
    list.show();
    QSignalSpy asked(&list, &RowList::asked);
    const RowDelegate& delegate = *list.findChild<RowDelegate*>();
    const QRect row = list.visualRect(list.model()->index(1, 0));
    const auto click = [&](const QPoint& at) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at); };
    const auto doubleClick = [&](const QPoint& at) {
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    };
    const QPoint trash = delegate.actionRect(row, 1).center();
    click(row.center() - QPoint(100, 0));
    QCOMPARE(asked.size(), 0);
    click(trash);
    QCOMPARE(asked.takeFirst(), QVariantList({1, u"k2"_s}));
    doubleClick(row.center() - QPoint(100, 0));
    QCOMPARE(asked.takeFirst(), QVariantList({0, u"k2"_s}));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, trash);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, delegate.actionRect(row, 0).center());
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(asked.size(), 0);
    QVERIFY(delegate.isCut(row, list.model()->index(1, 0)));
    QVERIFY(!delegate.isCut(row, list.model()->index(0, 0)));
}

void TestCatalogSheets::tabGoesInReadingOrder()
{
    const OpenCatalog open(u"Orva"_s, threeProducts);
    open.type(u"newBrand"_s, u"x"_s);
    open.type(u"newName"_s, u"x"_s);
    open.find<QWidget>(u"importCatalog"_s).setFocus();
    QStringList order;
    do {
        order.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget()->objectName() != u"importCatalog" && order.size() < 20);
    const QStringList expected{u"importCatalog"_s,
                               u"exportCatalog"_s,
                               u"brandFilter"_s,
                               u"removeBrand"_s,
                               u"newBrand"_s,
                               u"addBrand"_s,
                               u"products"_s,
                               u"newName"_s,
                               u"newColors"_s,
                               u"addProduct"_s,
                               u""_s};
    QCOMPARE(order, expected);
}

void TestCatalogSheets::catalogIsExportedOrTold()
{
    OpenCatalog open(u"Orva"_s, threeProducts);
    const auto exportTo = [&open](const QString& path) {
        open.dialogs.saved = path;
        open.find<QPushButton>(u"exportCatalog"_s).click();
        return open.find<NoticeLine>(u"catalogNotice"_s).text();
    };
    QCOMPARE(exportTo({}), QString());
    QCOMPARE(open.dialogs.asked.constFirst(), u"productcatalogus.csv"_s);
    QVERIFY(exportTo(open.path(u"x.csv"_s)).contains(u"x.csv"_s));
    QFile file(open.path(u"x.csv"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), open.catalog.exportCSV());
    QVERIFY(exportTo(open.path(u"none/x.csv"_s)).contains(u"kon niet bewaard worden"_s));
}

void TestCatalogSheets::importClosesByItself()
{
    UiFixture fixture;
    fixture.catalog.addBrand(u"Velora"_s);
    QWidget window;
    window.show();
    CatalogImportSheet sheet(fixture.ui, u"Velora"_s, &window, std::chrono::milliseconds(1));
    QSignalSpy finished(&sheet, &QDialog::finished);
    sheet.open();
    sheet.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&sheet));
    auto* const text = sheet.findChild<QPlainTextEdit*>();
    QTest::keyClick(text, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(finished.size(), 0);
    text->setPlainText(u"Naam;Kleuren\nsjaal;rood\nsok;wit;Orva"_s);
    QTest::keyClick(text, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(shownTexts(sheet).contains(u"2 producten geïmporteerd"_s));
    QCOMPARE(fixture.catalog.products().constFirst().brand, u"Velora"_s);
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(CatalogImportSheet::untilItCloses.count(), 1500);
}

void TestCatalogSheets::clientsAreAddedAndRemoved()
{
    const OpenClients empty(QStringList{});
    QVERIFY(empty.says(u"Nog geen klanten. Voeg er hierboven een toe."_s));

    const OpenClients open(QStringList{u"Velora"_s, u"Noord"_s},
                           [](ProductCatalog& catalog) { catalog.addClient(u"Noord"_s); });
    QVERIFY(open.active);
    QCOMPARE(QApplication::focusWidget()->objectName(), u"newClient"_s);
    QCOMPARE(open.rows(u"clients"_s), QStringList({u"Noord"_s, u"Velora"_s}));
    open.press(u"newClient"_s, Qt::Key_Return);
    QVERIFY(open.sheet->isVisible());
    open.type(u"newClient"_s, u" orva "_s);
    open.press(u"newClient"_s, Qt::Key_Return);
    QCOMPARE(open.rows(u"clients"_s), QStringList({u"Noord"_s, u"orva"_s, u"Velora"_s}));
    auto& list = open.find<RowList>(u"clients"_s);
    QCOMPARE(list.currentIndex().row(), 1);
    open.press(u"clients"_s, Qt::Key_Delete);
    QCOMPARE(open.rows(u"clients"_s), QStringList({u"Noord"_s, u"Velora"_s}));
    QCOMPARE(list.currentIndex().row(), 1);
    open.press(u"clients"_s, Qt::Key_Delete);
    open.press(u"clients"_s, Qt::Key_Return);
    QVERIFY(open.sheet->isVisible());
    QCOMPARE(open.rows(u"clients"_s), QStringList({u"Noord"_s, u"Velora"_s}));
    QVERIFY(open.find<NoticeLine>(u"clientsNotice"_s).text().contains(u"Velora"_s));
}

void TestCatalogSheets::colors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("colors");
    QTest::newRow("none") << u""_s << QStringList();
    QTest::newRow("blanks and commas") << u" , \t,"_s << QStringList();
    QTest::newRow("trimmed") << u"blue navy , rood\t,\u00A0zand"_s
                             << QStringList{u"blue navy"_s, u"rood"_s, u"zand"_s};
    QTest::newRow("doubles stay") << u"rood,rood;wit"_s << QStringList{u"rood"_s, u"rood;wit"_s};
}

void TestCatalogSheets::colors()
{
    QFETCH(QString, text);
    QFETCH(QStringList, colors);
    QCOMPARE(colorsOfText(text), colors);
    QCOMPARE(colorsOfText(textOfColors(colors)), colors);
}

void TestCatalogSheets::enteredBrands_data()
{
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QString>("brand");  // for "velora"
    QTest::newRow("new") << QStringList{u"Orva"_s} << u"velora"_s;
    QTest::newRow("listed in another case") << QStringList{u"Orva"_s, u"Velora"_s} << u"Velora"_s;
    QTest::newRow("listed in both") << QStringList{u"Velora"_s, u"velora"_s} << u"velora"_s;
}

void TestCatalogSheets::enteredBrands()
{
    QFETCH(QStringList, listed);
    QTEST(enteredBrand(listed, u"velora"_s), "brand");
}

void TestCatalogSheets::currentRows_data()
{
    QTest::addColumn<QString>("before");  // a letter for each key
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("row");
    QTest::newRow("nothing was current") << "abc" << -1 << "ab" << -1;
    QTest::newRow("moved") << "abc" << 0 << "bca" << 2;
    QTest::newRow("removed") << "abc" << 1 << "ac" << 1;
    QTest::newRow("the last was removed") << "abc" << 2 << "ab" << 1;
    QTest::newRow("the only one was removed") << "a" << 0 << "" << -1;
    QTest::newRow("added") << "ac" << 0 << "abc" << 1;
    QTest::newRow("another list, longer by one") << "ab" << -1 << "cde" << -1;
    QTest::newRow("the first list") << "" << -1 << "a" << -1;
}

void TestCatalogSheets::currentRows()
{
    QFETCH(QString, before);
    QFETCH(int, current);
    QFETCH(QString, after);
    const auto rows = [](const QString& keys) {
        QList<ListedRow> list;
        for (const QChar key : keys)
            list.append({key, {}, {}});
        return list;
    };
    QTEST(nextCurrentRow(rows(before), current, rows(after)), "row");
}

MORVAK_TEST(TestCatalogSheets);
#include "test_catalog_sheets.moc"
