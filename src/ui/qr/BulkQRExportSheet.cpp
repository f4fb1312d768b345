#include "ui/qr/BulkQRExportSheet.h"

namespace morvak {

BulkQRExportSheet::BulkQRExportSheet(UiServices&, const QList<SetData>&, const QString&, QWidget* window)
    : SheetFrame(tr("Bulk QR-export"), window)
{
}

}  // namespace morvak
