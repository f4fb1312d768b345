#include "ui/shoots/NewShootSheet.h"

#include "actions/Clients.h"
#include "actions/SetTexts.h"
#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/ChoiceBox.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/theme/Metrics.h"
#include "ui/catalog/ClientsSheet.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvak {

NewShootSheet::NewShootSheet(UiServices& services, QWidget* window)
    : SheetFrame(tr("Nieuwe Shoot"), window),
      m_services(services),
      m_name(new QLineEdit),
      m_location(new QLineEdit),
      m_client(new ChoiceBox)
{
    setObjectName(QStringLiteral("newShootSheet"));
    m_name->setObjectName(QStringLiteral("shootName"));
    m_location->setObjectName(QStringLiteral("shootLocation"));
    addFormField(*content(), tr("Naam (bijv. Ibiza Zomer 2026)"), m_name);
    addFormField(*content(), tr("Locatie (optioneel)"), m_location);
    addClient();
    setCancelButton(tr("Annuleer"));
    enableWhileFilled(*setPrimaryButton(tr("Aanmaken")), *m_name, tr("Geef de shoot eerst een naam"));
}

void NewShootSheet::addClient()
{
    m_client->setObjectName(QStringLiteral("shootClient"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    content()->addLayout(row);
    auto* const field = new QVBoxLayout;
    row->addLayout(field, 1);
    addFormField(*field, tr("Klant (optioneel)"), m_client);
    QPushButton* const manage = makeButton(tr("Beheer klanten"));
    manage->setObjectName(QStringLiteral("manageClients"));
    row->addWidget(manage, 0, Qt::AlignBottom);

    connect(manage, &QPushButton::clicked, this, &NewShootSheet::manageClients);
    connect(&m_services.catalog, &ProductCatalog::clientsChanged, this, &NewShootSheet::showClients);
    showClients();
}

/// The choice stays where it is still there.
void NewShootSheet::showClients()
{
    QList<ChoiceBox::Choice> choices{{tr("Geen klant"), QString()}};
    for (const QString& client :
         knownClients(m_services.shoots.shoots(), m_services.catalog.allClientNames()))
        choices.append({client, client});
    m_client->setChoices(choices, m_client->currentData());
}

void NewShootSheet::manageClients()
{
    auto* const sheet = new ClientsSheet(m_services, knownClients(m_services.shoots.shoots()), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

NewShoot NewShootSheet::shoot() const
{
    return {enteredText(*m_name), enteredText(*m_location), m_client->currentData().toString()};
}

}  // namespace morvak
