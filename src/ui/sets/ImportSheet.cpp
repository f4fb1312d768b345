#include "ui/sets/ImportSheet.h"

namespace morvak {

ImportSheet::ImportSheet(UiServices&, QUuid, QWidget* window, const QString&)
    : SheetFrame(tr("Import CSV"), window)
{
}

void ImportSheet::takeFile(const QString&) {}

}  // namespace morvak
