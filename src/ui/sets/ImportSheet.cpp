#include "ui/sets/ImportSheet.h"

#include "store/ShootManager.h"
#include "ui/UiServices.h"
#include "ui/blocks/ImportPane.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace morvak {

namespace {

constexpr int sheetWidth = 560;
constexpr int shortestText = 80;
constexpr int tallestText = 240;

}  // namespace

ImportSheet::ImportSheet(UiServices& services, QUuid shootId, QWidget* window, const QString& text)
    : SheetFrame(tr("Import CSV"), window),
      m_services(services),
      m_shootId(shootId),
      m_pane(new ImportPane(
          services.dialogs,
          {.help = tr("Plak CSV data of kies een bestand. Kolommen: Set, Merk, Items (item/kleur, "
                      "item/kleur), Model, Locatie"),
           .example = tr("Voorbeeld:\nSet;Merk;Items;Model;Locatie\n1;Velora;coated pants/brown, "
                         "sweater/blue navy;Anna;Studio A")}))
{
    setObjectName(QStringLiteral("importSheet"));
    setContentWidth(sheetWidth);
    content()->addWidget(m_pane);
    setGivingWay(m_pane->editor(), shortestText, tallestText);
    setCancelButton(tr("Annuleer"));
    m_import = setPrimaryButton(tr("Importeer"));
    connect(m_pane, &ImportPane::textChanged, this, [this] {
        m_imported = false;
        showWhetherUsable();
    });
    m_pane->setText(text);
    showWhetherUsable();
}

void ImportSheet::takeFile(const QString& path)
{
    m_pane->takeFile(path);
}

void ImportSheet::accept()
{
    const qsizetype count = m_services.shoots.importCSV(m_pane->text(), m_shootId);
    m_pane->showResult(QString::number(count) + tr(" sets geïmporteerd"),
                       count > 0 ? Role::success : Role::warning);
    m_imported = true;
    showWhetherUsable();
}

void ImportSheet::showWhetherUsable()
{
    const bool isEmpty = m_pane->isEmpty();
    m_import->setEnabled(!isEmpty && !m_imported);
    m_import->setToolTip(isEmpty      ? tr("Plak eerst een tekst of kies een bestand")
                         : m_imported ? tr("Deze tekst is al geïmporteerd")
                                      : QString());
}

}  // namespace morvak
