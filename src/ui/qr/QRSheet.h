#pragma once

#include "model/SetData.h"
#include "ui/blocks/SheetFrame.h"

namespace morvak {

struct UiServices;

/// Shows the code of a set, to copy or to keep as a file.
class QRSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit QRSheet(UiServices& services, const SetData& set, QWidget* window);
};

}  // namespace morvak
