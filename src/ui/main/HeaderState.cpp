#include "ui/main/HeaderState.h"

#include "actions/SetTexts.h"
#include "ui/watch/LogText.h"

namespace morvak {

HeaderState HeaderText::of(const HeaderFacts& facts)
{
    HeaderState state;
    state.isWatching = facts.watching == WatchState::watching;
    state.watching = watching(facts.watching);
    state.hasSet = facts.tagging.set.has_value();
    state.set = state.hasSet ? SetTexts::name(*facts.tagging.set) : tr("Geen actieve set");
    state.difference = difference(facts.tagging);
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

QString HeaderText::difference(const TaggedNow& tagging)
{
    const QString name = tagging.set ? SetTexts::name(*tagging.set) : QString();
    switch (tagging.difference) {
        case TaggedNow::Difference::none:
            return {};
        case TaggedNow::Difference::notActive:
            return tr("Foto’s krijgen %1, maar die set is in de lijst niet actief.").arg(name);
        case TaggedNow::Difference::changed:
            return tr("Foto’s krijgen %1 zoals de set was voor de wijziging. Activeer de set opnieuw.")
                .arg(name);
        case TaggedNow::Difference::elsewhere:
            return tr("Foto’s krijgen %1 uit een andere shoot: %2.").arg(name, tagging.shootName);
        case TaggedNow::Difference::unstored:
            return tr("Foto’s krijgen %1. Zonder shoot wordt de set niet bewaard.").arg(name);
        case TaggedNow::Difference::deleted:
            return tr("Foto’s krijgen nog %1, maar die set is verwijderd.").arg(name);
    }
    Q_UNREACHABLE();
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
