#include "ui/catalog/CatalogImportSheet.h"

#include "catalog/ProductCatalog.h"
#include "ui/UiServices.h"
#include "ui/blocks/ImportPane.h"

#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace morvak {

namespace {

constexpr int sheetWidth = 560;
constexpr int shortestText = 80;
constexpr int tallestText = 240;

}  // namespace

CatalogImportSheet::CatalogImportSheet(UiServices& services, const QString& defaultBrand, QWidget* window,
                                       std::chrono::milliseconds closing)
    : SheetFrame(tr("Import Productcatalogus"), window),
      m_catalog(services.catalog),
      m_defaultBrand(defaultBrand),
      m_closing(closing),
      m_pane(new ImportPane(
          services.dialogs,
          {.help = tr("Plak CSV data of kies een bestand. Kolommen: Naam;Kleuren;Merk (kleuren "
                      "komma-gescheiden, merk optioneel — leeg = Algemeen, oudere exports zonder "
                      "Merk-kolom worden aan het huidig geselecteerde merk toegewezen)"),
           .example = tr("Voorbeeld:\nNaam;Kleuren;Merk\ncoated pants;brown, navy, black;Mr Velora\n"
                         "sweater;blue navy;")}))
{
    setObjectName(QStringLiteral("catalogImportSheet"));
    setContentWidth(sheetWidth);
    content()->addWidget(m_pane);
    setGivingWay(m_pane->editor(), shortestText, tallestText);
    setCancelButton(tr("Annuleer"));
    m_import = setPrimaryButton(tr("Importeer"));
    connect(m_pane, &ImportPane::textChanged, this, &CatalogImportSheet::showWhetherUsable);
    showWhetherUsable();
}

void CatalogImportSheet::accept()
{
    const qsizetype count = m_catalog.importCSV(m_pane->text(), m_defaultBrand);
    m_pane->showResult(QString::number(count) + tr(" producten geïmporteerd"));
    m_imported = true;
    showWhetherUsable();
    QTimer::singleShot(m_closing, this, [this] {
        if (isVisible())
            done(Accepted);
    });
}

void CatalogImportSheet::showWhetherUsable()
{
    m_import->setEnabled(!m_pane->isEmpty() && !m_imported);
    m_import->setToolTip(m_pane->isEmpty() ? tr("Plak eerst een tekst of kies een bestand") : QString());
}

}  // namespace morvak
