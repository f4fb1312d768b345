#pragma once

#include "ui/blocks/SheetFrame.h"

#include <QUuid>

namespace morvak {

class ImportPane;
struct UiServices;

/// Takes the sets of a CSV text into a shoot, and stays open to tell how many. The same text is not taken
/// twice. `text` is what the sheet begins with.
class ImportSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit ImportSheet(UiServices& services, QUuid shootId, QWidget* window, const QString& text = {});

    /// Replaces the text by that of the file, or tells that it holds none.
    void takeFile(const QString& path);

    /// Imports the text.
    void accept() override;

private:
    void showWhetherUsable();

    UiServices& m_services;
    QUuid m_shootId;
    ImportPane* m_pane;
    QPushButton* m_import;
    bool m_imported = false;  // the text as it stands
};

}  // namespace morvak
