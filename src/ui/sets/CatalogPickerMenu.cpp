#include "ui/sets/CatalogPickerMenu.h"

#include "catalog/ProductCatalog.h"
#include "ui/base/blocks/TextLook.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr int widestLabel = 320;

/// One line, with ampersands that are no mnemonics.
QString menuText(const QString& name, const QFontMetrics& metrics)
{
    QString text = metrics.elidedText(name.simplified(), Qt::ElideRight, widestLabel);
    return text.replace(u'&', QStringLiteral("&&"));
}

void addLabel(QAction& action, const QString& name, const QFontMetrics& metrics)
{
    action.setText(menuText(name, metrics));
    action.setToolTip(toolTipOf(name));
}

QAction* addEntry(QMenu& menu, const QString& name)
{
    QAction* const entry = menu.addAction(QString());
    addLabel(*entry, name, menu.fontMetrics());
    return entry;
}

/// Long menus scroll, instead of filling the screen with columns.
void prepare(QMenu& menu)
{
    menu.setToolTipsVisible(true);
    menu.ensurePolished();  // or the menu does not see its own style sheet
    menu.setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
}

/// `show` makes the entries when the submenu is opened for the first time.
template <typename Show>
void addSubmenu(QMenu& menu, const QString& name, const Show& show)
{
    auto* const submenu = new QMenu(&menu);
    prepare(*submenu);
    addLabel(*submenu->menuAction(), name, menu.fontMetrics());
    menu.addMenu(submenu);
    QObject::connect(submenu, &QMenu::aboutToShow, submenu, [submenu, show] {
        if (submenu->isEmpty())
            show(*submenu);
    });
}

}  // namespace

CatalogPickerMenu::CatalogPickerMenu(const ProductCatalog& catalog, const QString& client, QWidget* parent)
    : QMenu(parent), m_catalog(catalog), m_client(client)
{
    prepare(*this);
    connect(this, &QMenu::aboutToShow, this, &CatalogPickerMenu::showBrands);
}

void CatalogPickerMenu::showBrands()
{
    clear();
    qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    const QList<Product>& products = m_catalog.products();
    if (products.isEmpty()) {
        addEntry(*this, tr("Catalogus is leeg"))->setEnabled(false);
        return;
    }
    const auto addBrand = [this](const QString& name, const QString& brand) {
        addSubmenu(*this, name, [this, brand](QMenu& menu) { showProducts(menu, brand); });
    };
    for (const QString& brand : pickerBrands(m_catalog.allBrandNames(), m_client))
        addBrand(brand, brand);
    if (std::ranges::any_of(products, &QString::isEmpty, &Product::brand))
        addBrand(tr("Algemeen"), QString());
}

void CatalogPickerMenu::showProducts(QMenu& menu, const QString& brand)
{
    for (const Product& product : m_catalog.products()) {
        if (product.brand != brand)
            continue;
        if (product.colors.isEmpty())
            connectPick(*addEntry(menu, product.name), product.name, {});
        else
            addSubmenu(menu, product.name, [this, product](QMenu& colors) { showColors(colors, product); });
    }
    if (menu.isEmpty())
        addEntry(menu, tr("Geen producten voor dit merk."))->setEnabled(false);
}

void CatalogPickerMenu::showColors(QMenu& menu, const Product& product)
{
    for (const QString& color : product.colors)
        connectPick(*addEntry(menu, color), product.name, color);
    connectPick(*addEntry(menu, tr("Geen kleur")), product.name, {});
}

void CatalogPickerMenu::connectPick(QAction& entry, const QString& name, const QString& color)
{
    connect(&entry, &QAction::triggered, this, [this, name, color] { Q_EMIT picked(name, color); });
}

QStringList pickerBrands(QStringList brandNames, const QString& client)
{
    std::ranges::stable_partition(brandNames, [&client](const QString& brand) {
        return brand.compare(client, Qt::CaseInsensitive) == 0;
    });
    return brandNames;
}

}  // namespace morvak
