#pragma once

#include "ui/base/blocks/ImportFrame.h"

#include <chrono>

namespace morvak {

class ProductCatalog;
struct UiServices;

/// Takes the products of a CSV text into the catalog, tells how many, and closes by itself `closing` later.
/// `defaultBrand` is for the lines without a brand column.
class CatalogImportSheet final : public ImportFrame {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds untilItCloses{1500};

    CatalogImportSheet(UiServices& services, const QString& defaultBrand, QWidget* window,
                       std::chrono::milliseconds closing = untilItCloses);

private:
    Result import(const QString& text) override;

    ProductCatalog& m_catalog;
    QString m_defaultBrand;
    std::chrono::milliseconds m_closing;
};

}  // namespace morvak
