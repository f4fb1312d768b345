#pragma once

#include "ui/blocks/SheetFrame.h"

namespace morvak {

struct UiServices;

/// Maintains the products and brands of the catalog, and exchanges them as CSV. Every change is saved at
/// once.
class CatalogSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit CatalogSheet(UiServices& services, const QString& defaultBrand, QWidget* window);
};

}  // namespace morvak
