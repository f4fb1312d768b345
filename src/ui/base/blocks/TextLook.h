#pragma once

#include "ui/base/theme/Colors.h"
#include "ui/base/theme/Fonts.h"

#include <QString>

class QLabel;
class QWidget;

namespace morvak {

/// Gives a label the font of a style and the colour of a role; both follow the scheme from then on. May be
/// called again.
void setTextLook(QLabel& label, TextStyle style, Role role = Role::text);

/// A plain-text label, selectable by nobody, that breaks its lines when `wraps`.
[[nodiscard]] QLabel* makeText(const QString& text, TextStyle style, Role role = Role::text,
                               bool wraps = false, QWidget* parent = nullptr);

/// A text of the user's as a tooltip shows it word for word, whatever tags it holds.
[[nodiscard]] QString toolTipOf(const QString& text);

}  // namespace morvak
