#pragma once

#include "ui/base/theme/Colors.h"

#include <QPalette>
#include <QString>

namespace morvak {

/// The application's style sheet in a scheme: the template with its tokens replaced, and a rule for each
/// role that a label's `textRole` may name.
[[nodiscard]] QString styleSheetOf(Scheme scheme);

/// The palette for everything that the style sheet leaves to the style, and for what is painted by hand.
[[nodiscard]] QPalette paletteOf(Scheme scheme);

}  // namespace morvak
