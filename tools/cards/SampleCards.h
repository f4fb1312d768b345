#pragma once

#include "model/SetData.h"

#include <QList>

namespace morvak::samples {

/// As many sets, numbered from 1, with the texts of an ordinary shoot; short, long and foreign ones among
/// them.
[[nodiscard]] QList<SetData> sampleCards(qsizetype count);

}  // namespace morvak::samples
