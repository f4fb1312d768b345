#pragma once

#include "model/Shoot.h"

#include <optional>

namespace morvak {

/// The set that photos get now, beside what the list of sets shows.
struct TaggedNow {
    /// How the set differs from the active one of the active shoot.
    enum class Difference {
        none,       ///< it is the active one, or there is no set
        notActive,  ///< another set of the shoot is active, or none
        changed,    ///< it is active, but was changed since photos get it
        elsewhere,  ///< it belongs to `shootName`, which is not the active shoot
        unstored,   ///< there is no shoot to hold it
        deleted,
    };
    std::optional<SetData> set;
    Difference difference = Difference::none;
    QString shootName;  ///< of the shoot that holds the set, when that is another one
};

/// What that is found out from: the set that photos get, and the store as it stands.
struct TaggingFacts {
    std::optional<SetData> taggingSet;
    QList<Shoot> shoots;
    std::optional<QUuid> activeShootId;
    std::optional<QUuid> activeSetId;
};

/// Pure.
[[nodiscard]] TaggedNow taggedNow(const TaggingFacts& facts);

}  // namespace morvak
