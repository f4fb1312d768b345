#include "ui/catalog/ClientsSheet.h"

#include "catalog/ProductCatalog.h"
#include "text/NameOrder.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/EntryField.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/catalog/RowList.h"
#include "ui/catalog/RowListModel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int shortestList = 96;
constexpr int tallestList = 320;

}  // namespace

ClientsSheet::ClientsSheet(UiServices& services, const QStringList& knownClients, QWidget* window)
    : SheetFrame(tr("Klanten"), window),
      m_catalog(services.catalog),
      m_knownClients(knownClients),
      m_notice(new NoticeLine)
{
    setObjectName(u"clientsSheet"_s);
    content()->addWidget(
        makeText(tr("Eenmaal aangemaakt kies je een klant bij een nieuwe shoot en in de productcatalogus, in "
                    "plaats van steeds opnieuw te typen."),
                 TextStyle::body, Role::secondary, true));
    addNewClientRow();
    addList(services.theme);
    m_notice->setObjectName(u"clientsNotice"_s);
    addSideWidget(m_notice);
    setPrimaryButton(tr("Sluiten"));
    connect(&m_catalog, &ProductCatalog::clientsChanged, this, &ClientsSheet::showClients);
    showClients();
}

void ClientsSheet::addNewClientRow()
{
    QPushButton* const add = makeButton(tr("+ Toevoegen"));
    add->setObjectName(u"addClient"_s);
    m_newClient = new EntryField(tr("Nieuwe klant..."), add);
    m_newClient->setObjectName(u"newClient"_s);
    enableWhileFilled(*add, *m_newClient, tr("Typ eerst de naam van de klant"));
    connect(add, &QPushButton::clicked, this, &ClientsSheet::addClient);

    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_newClient, 1);
    row->addWidget(add);
    content()->addLayout(row);
}

void ClientsSheet::addList(const Theme& theme)
{
    const RowAction removing{
        .label = tr("Verwijderen"),
        .symbol = u"trash"_s,
        .help = tr("Verwijderen uit de lijst (shoots/producten met deze klant blijven bestaan)"),
        .role = Role::danger,
        .keys = {Qt::Key_Delete},
        .onDoubleClick = false};
    m_clients = new RowList(theme, {removing});
    m_clients->setObjectName(u"clients"_s);
    m_clients->setAccessibleName(tr("Klanten"));
    m_clients->setEmptyText(tr("Nog geen klanten. Voeg er hierboven een toe."));
    content()->addWidget(m_clients);
    setGivingWay(m_clients, shortestList, tallestList);
    connect(m_clients, &RowList::asked, this, [this](int, const QString& name) { deleteClient(name); });
}

void ClientsSheet::showClients()
{
    QList<ListedRow> rows;
    for (const QString& name : distinctByName(m_knownClients + m_catalog.allClientNames()))
        rows.append({name, name, {}});
    m_clients->setRows(rows);
}

void ClientsSheet::addClient()
{
    m_catalog.addClient(enteredText(*m_newClient));
    m_newClient->clear();
    m_newClient->setFocus();
}

void ClientsSheet::deleteClient(const QString& name)
{
    m_catalog.deleteClient(name);
    if (m_knownClients.contains(name))
        m_notice->showNotice(tr("“%1” blijft staan: er is een shoot van deze klant.").arg(name));
}

}  // namespace morvak
