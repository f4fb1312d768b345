#include "ui/catalog/ClientsSheet.h"

namespace morvak {

ClientsSheet::ClientsSheet(UiServices&, const QStringList&, QWidget* window)
    : SheetFrame(tr("Klanten"), window)
{
}

}  // namespace morvak
