#include "ui/sets/SetTexts.h"

#include "text/NameOrder.h"

using namespace Qt::StringLiterals;

namespace morvak {

QString SetTexts::name(const SetData& set)
{
    const QString headline = set.headline();
    return headline.isEmpty() ? tr("Set zonder nummer") : headline;
}

QString SetTexts::count(const SetData& set)
{
    return QString::number(set.taggedCount) + tr(" foto's");
}

QString SetTexts::spoken(const SetData& set, bool isActive)
{
    QStringList parts{name(set), set.description(), count(set)};
    if (isActive)
        parts.append(tr("actief"));
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

QString SetTexts::watchFolder(const std::optional<Shoot>& shoot)
{
    if (!shoot)
        return tr("Geen watch folder");
    const QString folder = shoot->watchFolderPath.value_or(QString());
    return folder.isEmpty() ? tr("Geen watch folder ingesteld") : tr("Actief: ") + folder;
}

QString SetTexts::statistics(const Shoot& shoot)
{
    qint64 tagged = 0;
    for (const SetData& set : shoot.sets)
        tagged += set.taggedCount;
    return QString::number(shoot.sets.size()) + tr(" sets · ") + QString::number(tagged) +
           tr(" foto's getagd");
}

QStringList knownClients(const QList<Shoot>& shoots, const QStringList& listed)
{
    QStringList clients = listed;
    for (const Shoot& shoot : shoots)
        clients.append(shoot.client);
    clients.removeAll(QString());
    clients.removeDuplicates();
    return sortedByName(clients);
}

}  // namespace morvak
