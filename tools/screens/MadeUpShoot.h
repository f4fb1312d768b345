#pragma once

#include "model/SetData.h"

class QString;

namespace morvak {

struct UiServices;

/// How much there is to show.
enum class Amount {
    nothing,
    usual,
    overfull,  ///< 2,000 sets, 500 products, names of 200 characters, a set of 60 items
};

[[nodiscard]] QString nameOf(Amount amount);

/// Fills store, catalog and watcher as a working day leaves them: a shoot, an active set, photos tagged and
/// one that failed. Main thread; the log follows with the event loop.
void fillIn(const UiServices& services, Amount amount);

/// The first set of the active shoot, or one that nobody has filled in.
[[nodiscard]] SetData setToShow(const UiServices& services);

}  // namespace morvak
