#include "ui/rename/RenameView.h"

namespace morvak {

RenameView::RenameView(UiServices&, QWidget* parent) : QWidget(parent) {}

}  // namespace morvak
