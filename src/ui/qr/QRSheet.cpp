#include "ui/qr/QRSheet.h"

namespace morvak {

QRSheet::QRSheet(UiServices&, const SetData& set, QWidget* window) : SheetFrame(set.headline(), window) {}

}  // namespace morvak
