#include "ui/main/HeaderState.h"

#include "model/FindById.h"
#include "ui/sets/SetTexts.h"
#include "ui/watch/LogText.h"

namespace morvak {

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
    const Shoot* const active = facts.activeShootId ? findById(facts.shoots, *facts.activeShootId) : nullptr;
    if (const SetData* const stored = active ? findById(active->sets, tagging.id) : nullptr) {
        if (facts.activeSetId != tagging.id)
            return tr("Foto’s krijgen %1, maar die set is in de lijst niet actief.")
                .arg(SetTexts::name(tagging));
        return stored->toQRText() != tagging.toQRText()
                   ? tr("Foto’s krijgen %1 zoals de set was voor de wijziging. Activeer de set opnieuw.")
                         .arg(SetTexts::name(tagging))
                   : QString();
    }
    if (const Shoot* const other = findShootOfSet(facts.shoots, tagging.id))
        return tr("Foto’s krijgen %1 uit een andere shoot: %2.").arg(SetTexts::name(tagging), other->name);
    if (facts.shoots.isEmpty())
        return tr("Foto’s krijgen %1. Zonder shoot wordt de set niet bewaard.").arg(SetTexts::name(tagging));
    return tr("Foto’s krijgen nog %1, maar die set is verwijderd.").arg(SetTexts::name(tagging));
}

}  // namespace morvak
