#include "actions/TaggedNow.h"

#include "model/FindById.h"

namespace morvak {

using Difference = TaggedNow::Difference;

TaggedNow taggedNow(const TaggingFacts& facts)
{
    if (!facts.taggingSet)
        return {};
    const SetData& set = *facts.taggingSet;
    const Shoot* const active = facts.activeShootId ? findById(facts.shoots, *facts.activeShootId) : nullptr;
    const SetData* const stored = active ? findById(active->sets, set.id) : nullptr;
    if (stored && facts.activeSetId != set.id)
        return {set, Difference::notActive, {}};
    if (stored)
        return {set, stored->toQRText() == set.toQRText() ? Difference::none : Difference::changed, {}};
    if (const Shoot* const holder = findShootOfSet(facts.shoots, set.id))
        return {set, Difference::elsewhere, holder->name};
    return {set, facts.shoots.isEmpty() ? Difference::unstored : Difference::deleted, {}};
}

}  // namespace morvak
