#include "actions/TaggedNow.h"

#include <algorithm>

namespace morvak {

namespace {

using Difference = TaggedNow::Difference;

const SetData* setIn(const Shoot& shoot, QUuid id)
{
    const auto found = std::ranges::find(shoot.sets, id, &SetData::id);
    return found == shoot.sets.cend() ? nullptr : &*found;
}

}  // namespace

TaggedNow taggedNow(const TaggingFacts& facts)
{
    if (!facts.taggingSet)
        return {};
    const SetData& set = *facts.taggingSet;
    const auto isActive = [&facts](const Shoot& shoot) { return shoot.id == facts.activeShootId; };
    const auto active = std::ranges::find_if(facts.shoots, isActive);
    const SetData* const stored = active == facts.shoots.cend() ? nullptr : setIn(*active, set.id);
    if (stored && facts.activeSetId != set.id)
        return {set, Difference::notActive, {}};
    if (stored)
        return {set, stored->toQRText() == set.toQRText() ? Difference::none : Difference::changed, {}};
    const auto holdsSet = [&set](const Shoot& shoot) { return setIn(shoot, set.id) != nullptr; };
    const auto holder = std::ranges::find_if(facts.shoots, holdsSet);
    if (holder != facts.shoots.cend())
        return {set, Difference::elsewhere, holder->name};
    return {set, facts.shoots.isEmpty() ? Difference::unstored : Difference::deleted, {}};
}

}  // namespace morvak
