#pragma once

#include <QMenu>

namespace morvak {

class ProductCatalog;
struct Product;

/// The products of the catalog to pick from: by brand, by product, by colour.
///
/// Each level is made when it is opened, so that a catalog of any size opens at once. Long names are cut with
/// an ellipsis, the tooltip has all of them.
class CatalogPickerMenu final : public QMenu {
    Q_OBJECT

public:
    /// `client` of the shoot: a brand of that name stands first. The catalog outlives the menu.
    CatalogPickerMenu(const ProductCatalog& catalog, const QString& client, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The colour is empty for none.
    void picked(const QString& name, const QString& color);

private:
    void showBrands();
    void showProducts(QMenu& menu, const QString& brand);
    void showColors(QMenu& menu, const Product& product);
    void connectPick(QAction& entry, const QString& name, const QString& color);

    const ProductCatalog& m_catalog;
    QString m_client;
};

/// The brands in the order of the menu: as given, but those that are the client's, whatever their case,
/// first.
[[nodiscard]] QStringList pickerBrands(QStringList brandNames, const QString& client);

}  // namespace morvak
