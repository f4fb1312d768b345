#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace morvak {

/// All symbol names, in the order of the table.
[[nodiscard]] QStringList symbolNames();

/// The shape of a symbol as the alpha channel of a square of `pixels` device pixels; null for a name that is
/// not in the table.
[[nodiscard]] QImage symbolShape(const QString& symbol, int pixels);

/// Makes the icons of the packaged theme found in a bare environment, for ourselves and for Qt's own dialogs.
void installIconTheme(bool dark);

}  // namespace morvak
