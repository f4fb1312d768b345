#pragma once

#include "ui/base/blocks/ImportPane.h"
#include "ui/base/blocks/SheetFrame.h"

namespace morvak {

/// A sheet that imports a CSV text. The same text is not taken twice.
class ImportFrame : public SheetFrame {
    Q_OBJECT

public:
    /// Replaces the text by that of the file, or tells that it holds none.
    void takeFile(const QString& path) { m_pane->takeFile(path); }

    /// Imports the text and stays open.
    void accept() override;

protected:
    ImportFrame(const QString& title, Dialogs& dialogs, const ImportPane::Texts& texts, QWidget* window);

    void setText(const QString& text) { m_pane->setText(text); }

    struct Result {
        QString told;
        Role role = Role::success;
    };
    virtual Result import(const QString& text) = 0;

private:
    void showWhetherUsable();

    ImportPane* m_pane;
    QPushButton* m_import;
    bool m_imported = false;  // the text as it stands
};

}  // namespace morvak
