#pragma once

#include "model/Shoot.h"

#include <algorithm>

namespace morvak {

/// Finding records by their id. A pointer stays good until its list changes. Pure; any thread.

/// Index of the first record with this id; -1 without one.
template <typename Record>
[[nodiscard]] qsizetype indexOfId(const QList<Record>& records, QUuid id)
{
    const auto found = std::ranges::find(records, id, &Record::id);
    return found == records.cend() ? -1 : found - records.cbegin();
}

/// The first record with this id; null without one.
template <typename Record>
[[nodiscard]] const Record* findById(const QList<Record>& records, QUuid id)
{
    const qsizetype at = indexOfId(records, id);
    return at < 0 ? nullptr : &records[at];
}

/// The first shoot that holds the set; null when none does.
[[nodiscard]] inline const Shoot* findShootOfSet(const QList<Shoot>& shoots, QUuid setId)
{
    const auto found =
        std::ranges::find_if(shoots, [setId](const Shoot& shoot) { return findById(shoot.sets, setId); });
    return found == shoots.cend() ? nullptr : &*found;
}

/// The set with this id, in whatever shoot; null when none holds it.
[[nodiscard]] inline const SetData* findSet(const QList<Shoot>& shoots, QUuid setId)
{
    const Shoot* const shoot = findShootOfSet(shoots, setId);
    return shoot ? findById(shoot->sets, setId) : nullptr;
}

}  // namespace morvak
