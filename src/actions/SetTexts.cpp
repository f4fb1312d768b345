#include "actions/SetTexts.h"

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

QString SetTexts::deleteTitle(const Shoot& shoot)
{
    return tr("Shoot \"") + shoot.name + tr("\" verwijderen?");
}

QString SetTexts::deleteMessage(const Shoot& shoot)
{
    return tr("Dit verwijdert de shoot en alle ") + QString::number(shoot.sets.size()) +
           tr(" sets erin. Al getagde foto's blijven ongewijzigd, alleen de gegevens in Morvak verdwijnen.");
}

QString SetTexts::deleteTitle(const SetData& set)
{
    return tr("Set \"") + set.setNumber + tr("\" verwijderen?");
}

QString SetTexts::deleteMessage(const SetData& set, bool takesPhotos)
{
    const QString message =
        tr("%1 verdwijnt uit de shoot. Al getagde foto's blijven ongewijzigd.").arg(name(set));
    return takesPhotos
               ? message + u' ' + tr("Nieuwe foto's krijgen daarna geen set, tot je een andere activeert.")
               : message;
}

QString SetTexts::backlogResult(const BacklogScanSummary& summary)
{
    if (summary.totalCandidates == 0)
        return tr("Geen nog-ongetagde bestanden gevonden.");
    return QString::number(summary.totalCandidates) + tr(" gevonden, ") + QString::number(summary.tagged) +
           tr(" getagd, ") + QString::number(summary.unresolved) +
           tr(" overgeslagen (geen actieve set op dat tijdstip — zie het log).");
}

}  // namespace morvak
