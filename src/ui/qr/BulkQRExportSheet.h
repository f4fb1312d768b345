#pragma once

#include "model/SetData.h"
#include "ui/blocks/SheetFrame.h"

namespace morvak {

struct UiServices;

/// Prints the cards of chosen sets of a shoot into one PDF.
class BulkQRExportSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit BulkQRExportSheet(UiServices& services, const QList<SetData>& sets, const QString& shootName,
                               QWidget* window);
};

}  // namespace morvak
