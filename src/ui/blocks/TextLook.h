#pragma once

#include "ui/theme/Colors.h"
#include "ui/theme/Fonts.h"

class QLabel;
class QString;
class QWidget;

namespace morvak {

/// Gives a label the font of a style and the colour of a role; both follow the scheme from then on. May be
/// called again.
void setTextLook(QLabel& label, TextStyle style, Role role = Role::text);

/// A plain-text label, selectable by nobody, that breaks its lines when `wraps`.
[[nodiscard]] QLabel* makeText(const QString& text, TextStyle style, Role role = Role::text,
                               bool wraps = false, QWidget* parent = nullptr);

}  // namespace morvak
