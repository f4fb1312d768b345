#pragma once

#include "ui/base/blocks/SheetFrame.h"
#include "ui/catalog/CatalogRules.h"

class QPushButton;

namespace morvak {

class EntryField;
class IconButton;
class NoticeLine;
class RowList;
struct UiServices;

/// Maintains the products and brands of the catalog, and exchanges them as CSV. Every change is saved at
/// once. It begins with the products of `defaultBrand`, and with all of them where that is empty.
class CatalogSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit CatalogSheet(UiServices& services, const QString& defaultBrand, QWidget* window);

private:
    void addBrandRow();
    void addProductList();
    void addNewProductRow();
    void addExchangeButtons();

    void setFilter(const BrandFilter& filter);
    void showBrands();
    void showProducts();

    void addBrand();
    void addProduct();
    void editProduct(QUuid id);
    void importCsv();
    void exportCsv();

    UiServices& m_services;
    BrandFilter m_filter;
    ChoiceBox* m_brands;
    IconButton* m_removeBrand;
    EntryField* m_newBrand = nullptr;
    RowList* m_products = nullptr;
    EntryField* m_newName = nullptr;
    EntryField* m_newColors = nullptr;
    NoticeLine* m_notice;
};

}  // namespace morvak
