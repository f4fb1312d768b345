#include "ui/main/HeaderState.h"

#include "ui/sets/SetTexts.h"
#include "ui/watch/LogText.h"

#include <algorithm>

namespace morvak {

namespace {

bool holds(const Shoot& shoot, QUuid setId)
{
    return std::ranges::any_of(shoot.sets, [setId](const SetData& set) { return set.id == setId; });
}

const Shoot* shootOf(const QList<Shoot>& shoots, std::optional<QUuid> id)
{
    const auto found = std::ranges::find_if(shoots, [id](const Shoot& shoot) { return shoot.id == id; });
    return found == shoots.cend() ? nullptr : &*found;
}

const Shoot* shootWith(const QList<Shoot>& shoots, QUuid setId)
{
    const auto found =
        std::ranges::find_if(shoots, [setId](const Shoot& shoot) { return holds(shoot, setId); });
    return found == shoots.cend() ? nullptr : &*found;
}

bool isChanged(const Shoot& shoot, const SetData& tagging)
{
    const auto stored =
        std::ranges::find_if(shoot.sets, [&tagging](const SetData& set) { return set.id == tagging.id; });
    return stored->toQRText() != tagging.toQRText();
}

}  // namespace

HeaderState HeaderText::of(const HeaderFacts& facts)
{
    HeaderState state;
    state.isWatching = facts.watching == WatchState::watching;
    state.watching = watching(facts.watching);
    state.hasSet = facts.taggingSet.has_value();
    state.set = state.hasSet ? SetTexts::name(*facts.taggingSet) : tr("Geen actieve set");
    state.difference = difference(facts);
    if (facts.lastFailure) {
        state.failure = clockTime(*facts.lastFailure) + u' ' + facts.lastFailure->message;
        state.failureRole = facts.lastFailure->type == LogType::error ? Role::danger : Role::warning;
    }
    state.unsaved = unsaved(facts);
    return state;
}

QString HeaderText::watching(WatchState state)
{
    if (state == WatchState::watching)
        return tr("Actief");
    if (state == WatchState::missing)
        return tr("Map niet gevonden");
    return state == WatchState::noFolder ? tr("Geen map") : tr("Gestopt");
}

QString HeaderText::difference(const HeaderFacts& facts)
{
    if (!facts.taggingSet)
        return {};
    const SetData& tagging = *facts.taggingSet;
    const Shoot* const active = shootOf(facts.shoots, facts.activeShootId);
    if (active && holds(*active, tagging.id)) {
        if (facts.activeSetId != tagging.id)
            return tr("Foto’s krijgen %1, maar die set is in de lijst niet actief.")
                .arg(SetTexts::name(tagging));
        return isChanged(*active, tagging)
                   ? tr("Foto’s krijgen %1 zoals de set was voor de wijziging. Activeer de set opnieuw.")
                         .arg(SetTexts::name(tagging))
                   : QString();
    }
    if (const Shoot* const other = shootWith(facts.shoots, tagging.id))
        return tr("Foto’s krijgen %1 uit een andere shoot: %2.").arg(SetTexts::name(tagging), other->name);
    if (facts.shoots.isEmpty())
        return tr("Foto’s krijgen %1. Zonder shoot wordt de set niet bewaard.").arg(SetTexts::name(tagging));
    return tr("Foto’s krijgen nog %1, maar die set is verwijderd.").arg(SetTexts::name(tagging));
}

QString HeaderText::unsaved(const HeaderFacts& facts)
{
    const bool noShoots = !facts.shootsProblem.isEmpty();
    const bool noCatalog = !facts.catalogProblem.isEmpty();
    if (!noShoots && !noCatalog)
        return {};
    const QString what = noShoots && noCatalog ? tr("Shoots en productcatalogus worden niet bewaard: %1.")
                         : noShoots            ? tr("Shoots worden niet bewaard: %1.")
                                               : tr("De productcatalogus wordt niet bewaard: %1.");
    return what.arg(noShoots ? facts.shootsProblem : facts.catalogProblem) + u' ' +
           tr("Laat Morvak open: niets gaat verloren en het wordt steeds opnieuw geprobeerd.");
}

}  // namespace morvak
