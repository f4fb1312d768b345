#include "ui/base/blocks/ImportFrame.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace morvak {

namespace {

constexpr int sheetWidth = 560;
constexpr int shortestText = 80;
constexpr int tallestText = 240;

}  // namespace

ImportFrame::ImportFrame(const QString& title, Dialogs& dialogs, const ImportPane::Texts& texts,
                         QWidget* window)
    : SheetFrame(title, window), m_pane(new ImportPane(dialogs, texts))
{
    setContentWidth(sheetWidth);
    content()->addWidget(m_pane);
    setGivingWay(m_pane->editor(), shortestText, tallestText);
    setCancelButton(tr("Annuleer"));
    m_import = setPrimaryButton(tr("Importeer"));
    connect(m_pane, &ImportPane::textChanged, this, [this] {
        m_imported = false;
        showWhetherUsable();
    });
    showWhetherUsable();
}

void ImportFrame::accept()
{
    const Result result = import(m_pane->text());
    m_pane->showResult(result.told, result.role);
    m_imported = true;
    showWhetherUsable();
}

void ImportFrame::showWhetherUsable()
{
    const bool isEmpty = m_pane->isEmpty();
    m_import->setEnabled(!isEmpty && !m_imported);
    m_import->setToolTip(isEmpty      ? tr("Plak eerst een tekst of kies een bestand")
                         : m_imported ? tr("Deze tekst is al geïmporteerd")
                                      : QString());
}

}  // namespace morvak
