#include "ui/sets/ImportSheet.h"

#include "store/ShootManager.h"
#include "ui/base/UiServices.h"

namespace morvak {

ImportSheet::ImportSheet(UiServices& services, QUuid shootId, QWidget* window, const QString& text)
    : ImportFrame(tr("Import CSV"), services.dialogs,
                  {.help = tr("Plak CSV data of kies een bestand. Kolommen: Set, Merk, Items (item/kleur, "
                              "item/kleur), Model, Locatie"),
                   .example = tr("Voorbeeld:\nSet;Merk;Items;Model;Locatie\n1;Velora;coated pants/brown, "
                                 "sweater/blue navy;Anna;Studio A")},
                  window),
      m_services(services),
      m_shootId(shootId)
{
    setObjectName(QStringLiteral("importSheet"));
    setText(text);
}

ImportFrame::Result ImportSheet::import(const QString& text)
{
    const qsizetype count = m_services.shoots.importCSV(text, m_shootId);
    return {QString::number(count) + tr(" sets geïmporteerd"), count > 0 ? Role::success : Role::warning};
}

}  // namespace morvak
