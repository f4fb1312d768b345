#pragma once

#include "model/Shoot.h"

namespace morvak {

/// What is written into one photo: a set, and the shoot to which it belongs.
///
/// A value, copied freely, any thread. The shoot comes without its sets and its log: a copy of those that
/// waits with each photo would make the store copy them anew at each change.
struct Tagging {
    /// None for a photo without a shoot, which gets no tag that is taken from one.
    Tagging(SetData setToWrite, std::optional<Shoot> ofShoot);

    /// Empty without a shoot.
    [[nodiscard]] QString shootName() const { return shoot ? shoot->name : QString(); }

    SetData set;
    std::optional<Shoot> shoot;
};

}  // namespace morvak
