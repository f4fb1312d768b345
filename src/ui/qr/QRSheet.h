#pragma once

#include "model/SetData.h"
#include "ui/base/blocks/SheetFrame.h"

namespace morvak {

class NoticeLine;
struct UiServices;

/// Shows the code of a set, to copy or to keep as a file.
///
/// Return presses nothing here: who scans the code from the screen has the scanner type into this sheet.
class QRSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit QRSheet(UiServices& services, const SetData& set, QWidget* window);

    /// What the primary button does; the sheet stays open.
    void accept() override;

private:
    void showCode();
    void addButtons();

    UiServices& m_services;
    SetData m_set;
    NoticeLine* m_notice;
};

}  // namespace morvak
