#include "actions/SetActions.h"

#include "model/FindById.h"
#include "platform/Diagnostics.h"
#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"

namespace morvak {

namespace {

SetFields withNamedItems(SetFields fields)
{
    fields.items.removeIf([](const SetItem& item) { return item.name.isEmpty(); });
    return fields;
}

/// After a deletion. A set that was never stored, because there was no shoot, stays.
void dropCurrentSet(FolderWatcher& watcher, bool wasStored, const ShootManager& shoots)
{
    if (wasStored && !storedSet(shoots, watcher.currentSet()->id))
        watcher.setCurrentSet(std::nullopt);
}

bool currentSetIsStored(const FolderWatcher& watcher, const ShootManager& shoots)
{
    return watcher.currentSet() && storedSet(shoots, watcher.currentSet()->id);
}

}  // namespace

std::optional<SetData> storedSet(const ShootManager& shoots, QUuid id)
{
    const SetData* const set = findSet(shoots.shoots(), id);
    return set ? std::optional(*set) : std::nullopt;
}

bool takeScan(ShootManager& shoots, FolderWatcher& watcher, const QString& text)
{
    const std::optional<SetData> set = shoots.handleScanInput(text);
    if (set)
        watcher.setCurrentSet(set);
    else
        diagnostic(QStringLiteral("⚠️ Scan bevat geen set — overgeslagen"));
    return set.has_value();
}

void activateSet(ShootManager& shoots, FolderWatcher& watcher, QUuid id)
{
    shoots.activateSet(id);
    if (const std::optional<SetData> set = shoots.activeSet())
        watcher.setCurrentSet(set);
}

std::optional<QUuid> addNewSet(ShootManager& shoots, const SetFields& fields)
{
    const std::optional<Shoot> shoot = shoots.activeShoot();
    if (!shoot)
        return std::nullopt;
    SetData set = withFields(SetData(), withNamedItems(fields));
    if (set.setNumber.isEmpty())
        set.setNumber = shoots.defaultSetNumber();
    shoots.addSet(shoot->id, set);
    return set.id;
}

bool saveSetEdit(ShootManager& shoots, FolderWatcher& watcher, QUuid id, const SetFields& fields)
{
    const std::optional<SetData> stored = storedSet(shoots, id);
    if (!stored)
        return false;
    const SetData edited = withFields(*stored, withNamedItems(fields));
    shoots.updateSet(id, edited);
    if (watcher.currentSet() && watcher.currentSet()->id == id)
        watcher.setCurrentSet(edited);
    return true;
}

void deleteSet(ShootManager& shoots, FolderWatcher& watcher, QUuid id)
{
    const bool wasStored = currentSetIsStored(watcher, shoots);
    shoots.deleteSet(id);
    dropCurrentSet(watcher, wasStored, shoots);
}

void deleteShoot(ShootManager& shoots, FolderWatcher& watcher, QUuid id)
{
    const bool wasStored = currentSetIsStored(watcher, shoots);
    shoots.deleteShoot(id);
    dropCurrentSet(watcher, wasStored, shoots);
}

}  // namespace morvak
