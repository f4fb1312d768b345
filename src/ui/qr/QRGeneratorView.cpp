#include "ui/qr/QRGeneratorView.h"

namespace morvak {

QRGeneratorView::QRGeneratorView(UiServices&, QWidget* parent) : QWidget(parent) {}

}  // namespace morvak
