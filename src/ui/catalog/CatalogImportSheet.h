#pragma once

#include "ui/blocks/SheetFrame.h"

#include <chrono>

namespace morvak {

class ImportPane;
class ProductCatalog;
struct UiServices;

/// Takes the products of a CSV text into the catalog, tells how many, and closes by itself `closing` later.
/// `defaultBrand` is for the lines without a brand column.
class CatalogImportSheet final : public SheetFrame {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds untilItCloses{1500};

    CatalogImportSheet(UiServices& services, const QString& defaultBrand, QWidget* window,
                       std::chrono::milliseconds closing = untilItCloses);

    /// Imports the text.
    void accept() override;

private:
    void showWhetherUsable();

    ProductCatalog& m_catalog;
    QString m_defaultBrand;
    std::chrono::milliseconds m_closing;
    ImportPane* m_pane;
    QPushButton* m_import;
    bool m_imported = false;
};

}  // namespace morvak
