#include "ui/catalog/CatalogSheet.h"

#include "catalog/ProductCatalog.h"
#include "platform/OutputFile.h"
#include "text/Lines.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/EntryField.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/blocks/IconButton.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/catalog/CatalogImportSheet.h"
#include "ui/catalog/EditProductSheet.h"
#include "ui/catalog/RowList.h"
#include "ui/catalog/RowListModel.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int sheetWidth = 608;
constexpr int shortestList = 96;
constexpr int tallestList = 360;

/// What can be done with a product, in the order of its buttons.
enum ProductAction { edit, remove };

QVariant valueOf(const BrandFilter& filter)
{
    return filter ? QVariant(*filter) : QVariant();
}

QHBoxLayout* addRow(QVBoxLayout& column)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    column.addLayout(row);
    return row;
}

}  // namespace

CatalogSheet::CatalogSheet(UiServices& services, const QString& defaultBrand, QWidget* window)
    : SheetFrame(tr("Productcatalogus"), window),
      m_services(services),
      m_filter(defaultBrand.isEmpty() ? BrandFilter() : defaultBrand),
      m_brands(new ChoiceBox),
      m_removeBrand(new IconButton(services.theme, u"trash"_s,
                                   tr("Merk verwijderen uit de lijst (producten blijven bestaan)"), nullptr,
                                   Role::danger)),
      m_notice(new NoticeLine)
{
    setObjectName(u"catalogSheet"_s);
    setContentWidth(sheetWidth);
    content()->addWidget(makeText(
        tr("Producten die je hier toevoegt kun je bij het aanmaken van een set direct kiezen, zonder "
           "opnieuw te typen. Per merk gescheiden, zodat je niet door andermans producten hoeft te "
           "scrollen — een klant kan best meerdere merken hebben (bijv. Kestrum shoot je voor zowel Orva "
           "als Velora), dus dit staat los van welke klant een shoot is."),
        TextStyle::caption, Role::secondary, true));
    addBrandRow();
    addProductList();
    addNewProductRow();
    m_notice->setObjectName(u"catalogNotice"_s);
    addSideWidget(m_notice);
    setPrimaryButton(tr("Sluiten"));
    addExchangeButtons();

    connect(&services.catalog, &ProductCatalog::brandsChanged, this, &CatalogSheet::showBrands);
    connect(&services.catalog, &ProductCatalog::productsChanged, this, [this] {
        showBrands();
        showProducts();
    });
    setFilter(m_filter);
}

void CatalogSheet::addBrandRow()
{
    m_brands->setObjectName(u"brandFilter"_s);
    m_brands->setAccessibleName(tr("Merk"));
    m_removeBrand->setObjectName(u"removeBrand"_s);
    QPushButton* const add = makeButton(tr("+ Merk"));
    add->setObjectName(u"addBrand"_s);
    m_newBrand = new EntryField(tr("Nieuw merk..."), add);
    m_newBrand->setObjectName(u"newBrand"_s);
    enableWhileFilled(*add, *m_newBrand, tr("Typ eerst de naam van het merk"));
    QLabel* const label = makeText(tr("Merk"), TextStyle::body);
    label->setBuddy(m_brands);

    QHBoxLayout* const row = addRow(*content());
    row->addWidget(label);
    row->addWidget(m_brands, 3);
    row->addWidget(m_removeBrand);
    row->addWidget(m_newBrand, 2);
    row->addWidget(add);

    connect(m_brands, &QComboBox::activated, this, [this] {
        const QVariant value = m_brands->currentData();
        setFilter(value.isValid() ? BrandFilter(value.toString()) : BrandFilter());
    });
    connect(m_removeBrand, &IconButton::clicked, this, [this] {
        m_services.catalog.deleteBrand(brandOf(m_filter));
        setFilter({});
        m_brands->setFocus();
    });
    connect(add, &QPushButton::clicked, this, &CatalogSheet::addBrand);
}

void CatalogSheet::addProductList()
{
    const RowAction editing{.label = tr("Bewerken"),
                            .symbol = {},
                            .help = tr("Bewerken (F2)"),
                            .role = Role::text,
                            .keys = {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter},
                            .onDoubleClick = true};
    const RowAction removing{.label = tr("Verwijderen"),
                             .symbol = {},
                             .help = tr("Verwijderen (Delete)"),
                             .role = Role::danger,
                             .keys = {Qt::Key_Delete},
                             .onDoubleClick = false};
    m_products = new RowList(m_services.theme, {editing, removing});
    m_products->setObjectName(u"products"_s);
    m_products->setAccessibleName(tr("Producten"));
    content()->addWidget(m_products);
    setGivingWay(m_products, shortestList, tallestList);
    connect(m_products, &RowList::asked, this, [this](int action, const QString& key) {
        if (action == ProductAction::edit)
            editProduct(QUuid(key));
        else
            m_services.catalog.deleteProduct(QUuid(key));
    });
}

void CatalogSheet::addNewProductRow()
{
    QPushButton* const add = makeButton(tr("+ Toevoegen"));
    add->setObjectName(u"addProduct"_s);
    m_newName = new EntryField(tr("Naam (bijv. coated pants)"), add);
    m_newName->setObjectName(u"newName"_s);
    m_newColors = new EntryField(tr("Kleuren, komma-gescheiden (optioneel)"), add);
    m_newColors->setObjectName(u"newColors"_s);
    enableWhileFilled(*add, *m_newName, tr("Typ eerst de naam van het product"));
    connect(add, &QPushButton::clicked, this, &CatalogSheet::addProduct);

    auto* const section = new QVBoxLayout;
    section->setSpacing(metrics::inGroup);
    content()->addLayout(section);
    section->addWidget(makeText(tr("Nieuw product"), TextStyle::section));
    QHBoxLayout* const row = addRow(*section);
    row->addWidget(m_newName, 3);
    row->addWidget(m_newColors, 4);
    row->addWidget(add);
}

void CatalogSheet::addExchangeButtons()
{
    QPushButton* const importing = addHeadingButton(tr("Import CSV"));
    importing->setObjectName(u"importCatalog"_s);
    QPushButton* const exporting = addHeadingButton(tr("Export CSV"));
    exporting->setObjectName(u"exportCatalog"_s);
    connect(importing, &QPushButton::clicked, this, &CatalogSheet::importCsv);
    connect(exporting, &QPushButton::clicked, this, &CatalogSheet::exportCsv);
}

void CatalogSheet::setFilter(const BrandFilter& filter)
{
    m_filter = filter;
    showBrands();
    showProducts();
}

void CatalogSheet::showBrands()
{
    const QList<ChoiceBox::Choice> fixed{{tr("Alle merken"), QVariant()}, {tr("Algemeen"), QString()}};
    m_brands->setChoices(fixed + brandChoices(m_services.catalog.allBrandNames(), brandOf(m_filter)),
                         valueOf(m_filter));
    m_removeBrand->setVisible(!brandOf(m_filter).isEmpty());
}

void CatalogSheet::showProducts()
{
    const QList<Product>& all = m_services.catalog.products();
    QList<ListedRow> rows;
    for (const Product& product : listedProducts(all, m_filter))
        rows.append({product.id.toString(), product.name, textOfColors(product.colors)});
    m_products->setEmptyText(all.isEmpty()
                                 ? tr("Nog geen producten. Voeg er hieronder een toe of importeer een CSV.")
                                 : tr("Geen producten voor dit merk."));
    m_products->setRows(rows);
}

void CatalogSheet::addBrand()
{
    const QString entered = enteredText(*m_newBrand);
    const QString name = trimmed(entered).toString();
    if (name.isEmpty())
        return;
    m_services.catalog.addBrand(name);
    setFilter(enteredBrand(m_services.catalog.allBrandNames(), name));
    m_newBrand->clear();
}

void CatalogSheet::addProduct()
{
    m_services.catalog.addProduct(enteredText(*m_newName), colorsOfText(enteredText(*m_newColors)),
                                  brandOf(m_filter));
    m_newName->clear();
    m_newColors->clear();
    m_newName->setFocus();
}

void CatalogSheet::editProduct(QUuid id)
{
    const QList<Product>& products = m_services.catalog.products();
    const auto found = std::ranges::find(products, id, &Product::id);
    if (found == products.cend())
        return;
    auto* const sheet = new EditProductSheet(*found, m_services.catalog.allBrandNames(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &QDialog::accepted, this, [this, sheet] {
        const Product edited = sheet->product();
        m_services.catalog.updateProduct(edited.id, edited.name, edited.colors, edited.brand);
    });
    sheet->open();
}

void CatalogSheet::importCsv()
{
    auto* const sheet = new CatalogImportSheet(m_services, brandOf(m_filter), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void CatalogSheet::exportCsv()
{
    const QString path = m_services.dialogs.saveFile(this, tr("Export CSV"), u"productcatalogus.csv"_s,
                                                     tr("CSV (*.csv)"), u"csv"_s);
    if (path.isEmpty())
        return;
    OutputFile file(path);
    const bool saved = file.write(m_services.catalog.exportCSV().toUtf8()) && file.commit();
    const QString name = QFileInfo(path).fileName();
    if (saved)
        m_notice->showNotice(tr("Bewaard als “%1”.").arg(name), Role::success);
    else
        m_notice->showNotice(tr("De catalogus kon niet bewaard worden als “%1”.").arg(name), Role::warning);
}

}  // namespace morvak
