#include "ui/catalog/CatalogSheet.h"

namespace morvak {

CatalogSheet::CatalogSheet(UiServices&, const QString&, QWidget* window)
    : SheetFrame(tr("Productcatalogus"), window)
{
}

}  // namespace morvak
