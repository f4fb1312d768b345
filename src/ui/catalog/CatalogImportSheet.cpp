#include "ui/catalog/CatalogImportSheet.h"

#include "catalog/ProductCatalog.h"
#include "ui/base/UiServices.h"

#include <QTimer>

namespace morvak {

CatalogImportSheet::CatalogImportSheet(UiServices& services, const QString& defaultBrand, QWidget* window,
                                       std::chrono::milliseconds closing)
    : ImportFrame(tr("Import Productcatalogus"), services.dialogs,
                  {.help = tr("Plak CSV data of kies een bestand. Kolommen: Naam;Kleuren;Merk (kleuren "
                              "komma-gescheiden, merk optioneel — leeg = Algemeen, oudere exports zonder "
                              "Merk-kolom worden aan het huidig geselecteerde merk toegewezen)"),
                   .example = tr("Voorbeeld:\nNaam;Kleuren;Merk\ncoated pants;brown, navy, black;Mr Velora\n"
                                 "sweater;blue navy;")},
                  window),
      m_catalog(services.catalog),
      m_defaultBrand(defaultBrand),
      m_closing(closing)
{
    setObjectName(QStringLiteral("catalogImportSheet"));
}

ImportFrame::Result CatalogImportSheet::import(const QString& text)
{
    const qsizetype count = m_catalog.importCSV(text, m_defaultBrand);
    QTimer::singleShot(m_closing, this, [this] {
        if (isVisible())
            done(Accepted);
    });
    return {QString::number(count) + tr(" producten geïmporteerd")};
}

}  // namespace morvak
