#pragma once

#include "ui/base/theme/Colors.h"

#include <QIcon>
#include <QPixmap>
#include <QStringList>

#include <functional>

namespace morvak {

/// The icons of all screens, by our symbol names ("camera.fill", "qrcode", ...).
///
/// A symbol is an icon of the packaged Breeze theme or a drawing of our own, used as a shape and filled with
/// the colour of a role. An icon finds its colour whenever it is painted, so one made before a change of
/// scheme is right after it. Icons, and what was made by them, are used on the main thread while the theme
/// lives. A name that is not in the table gives an empty icon and a diagnostic line.
class Icons {
public:
    using ColorSource = std::function<QColor(Role)>;

    explicit Icons(ColorSource colors);

    [[nodiscard]] static QStringList symbols();

    [[nodiscard]] QIcon icon(const QString& symbol, Role role = Role::text) const;

    /// `size` square in device-independent pixels, sharp at `dpr` device pixels each; in the colour of now.
    [[nodiscard]] QPixmap pixmap(const QString& symbol, int size, Role role, qreal dpr) const;

    /// The logo in its own colours: header, windows, launcher.
    [[nodiscard]] static QIcon logo();

    /// The "qrcode" symbol on a plate of its own, readable on light and dark panels.
    [[nodiscard]] static QIcon tray();

private:
    ColorSource m_colors;
};

}  // namespace morvak
