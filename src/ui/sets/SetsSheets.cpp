#include "ui/sets/SetsSheets.h"

#include "actions/Clients.h"
#include "actions/SetActions.h"
#include "actions/SetTexts.h"
#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/catalog/CatalogSheet.h"
#include "ui/catalog/ClientsSheet.h"
#include "ui/qr/BulkQRExportSheet.h"
#include "ui/qr/QRSheet.h"
#include "ui/sets/ImportSheet.h"
#include "ui/sets/SetSheet.h"
#include "ui/shoots/NewShootSheet.h"
#include "watch/FolderWatcher.h"

#include <QApplication>

namespace morvak {

SetsSheets::SetsSheets(UiServices& services, QWidget& tab) : QObject(&tab), m_services(services), m_tab(tab)
{
}

/// A key may be pressed twice before the first sheet has come.
bool SetsSheets::mayOpen() const
{
    return !QApplication::activeModalWidget();
}

void SetsSheets::open(SheetFrame* sheet)
{
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &QDialog::finished, this, &SetsSheets::closed);
    sheet->open();
}

void SetsSheets::newShoot()
{
    if (!mayOpen())
        return;
    auto* const sheet = new NewShootSheet(m_services, m_tab.window());
    connect(sheet, &QDialog::accepted, this, [this, sheet] {
        const NewShoot entered = sheet->shoot();
        m_services.shoots.createShoot(entered.name, entered.location, entered.client);
    });
    open(sheet);
}

void SetsSheets::deleteShoot()
{
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    if (!shoot || !mayOpen())
        return;
    if (m_services.dialogs.confirm(m_tab.window(), SetTexts::deleteTitle(*shoot),
                                   SetTexts::deleteMessage(*shoot), tr("Verwijderen")))
        morvak::deleteShoot(m_services.shoots, m_services.watcher, shoot->id);
    Q_EMIT closed();
}

void SetsSheets::clients()
{
    if (mayOpen())
        open(new ClientsSheet(m_services, knownClients(m_services.shoots.shoots()), m_tab.window()));
}

void SetsSheets::import(const QString& file)
{
    const std::optional<QUuid> shootId = m_services.shoots.activeShootId();
    if (!shootId || !mayOpen())
        return;
    auto* const sheet = new ImportSheet(m_services, *shootId, m_tab.window());
    open(sheet);
    if (!file.isEmpty())
        sheet->takeFile(file);
}

void SetsSheets::bulkExport()
{
    if (!mayOpen())
        return;
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    open(new BulkQRExportSheet(m_services, shoot ? shoot->sets : QList<SetData>(),
                               shoot ? shoot->name : QStringLiteral("sets"), m_tab.window()));
}

void SetsSheets::catalog()
{
    if (!mayOpen())
        return;
    const std::optional<Shoot> shoot = m_services.shoots.activeShoot();
    const QString client = shoot ? shoot->client : QString();
    open(new CatalogSheet(m_services, brandOfClient(m_services.catalog.allBrandNames(), client),
                          m_tab.window()));
}

void SetsSheets::newSet()
{
    if (!m_services.shoots.activeShoot() || !mayOpen())
        return;
    auto* const sheet = new NewSetSheet(m_services, m_tab.window());
    connect(sheet, &QDialog::accepted, this, [this, sheet] {
        if (const std::optional<QUuid> id = addNewSet(m_services.shoots, sheet->fields()))
            Q_EMIT setAdded(*id);
    });
    open(sheet);
}

void SetsSheets::editSet(QUuid id)
{
    const std::optional<SetData> set = storedSet(m_services.shoots, id);
    if (!set || !mayOpen())
        return;
    auto* const sheet = new EditSetSheet(m_services, *set, m_tab.window());
    connect(sheet, &QDialog::accepted, this, [this, sheet, before = *set] {
        if (!saveSetEdit(m_services.shoots, m_services.watcher, before.id, sheet->fields()))
            Q_EMIT told({tr("%1 is intussen verwijderd; de wijzigingen zijn niet bewaard.")
                             .arg(SetTexts::name(before)),
                         Role::warning});
    });
    open(sheet);
}

void SetsSheets::showQR(QUuid id)
{
    const std::optional<SetData> set = storedSet(m_services.shoots, id);
    if (set && mayOpen())
        open(new QRSheet(m_services, *set, m_tab.window()));
}

void SetsSheets::deleteSet(QUuid id)
{
    const std::optional<SetData> set = storedSet(m_services.shoots, id);
    if (!set || !mayOpen())
        return;
    const auto& current = m_services.watcher.currentSet();
    const QString message = SetTexts::deleteMessage(*set, current && current->id == id);
    if (m_services.dialogs.confirm(m_tab.window(), SetTexts::deleteTitle(*set), message, tr("Verwijderen")))
        morvak::deleteSet(m_services.shoots, m_services.watcher, id);
    Q_EMIT closed();
}

}  // namespace morvak
