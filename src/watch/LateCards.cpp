#include "watch/LateCards.h"

namespace morvak {

std::optional<SetMoment> LateCards::take(quint64 run)
{
    const auto entry = m_moments.extract(run);
    return entry ? std::optional(entry.mapped()) : std::nullopt;
}

void LateCards::cardActivated(quint64 run, const SetMoment& before, const SetMoment& after)
{
    for (auto later = m_moments.upper_bound(run); later != m_moments.end(); ++later) {
        if (later->second == before)
            later->second = after;
    }
}

}  // namespace morvak
