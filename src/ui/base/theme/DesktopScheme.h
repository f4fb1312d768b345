#pragma once

#include "platform/PortalSetting.h"
#include "ui/base/theme/Colors.h"

#include <QObject>

#include <optional>

class QPalette;

namespace morvak {

/// What the desktop's settings portal says: 1 asks for dark, 2 for light, anything else leaves it open.
[[nodiscard]] std::optional<Scheme> schemeOfPortal(uint colorScheme);

/// Dark when the text of a palette is lighter than its windows.
[[nodiscard]] Scheme schemeOfPalette(const QPalette& palette);

/// The colour scheme that the desktop wishes for: from the freedesktop settings portal
/// (`org.freedesktop.appearance color-scheme`), and where there is none or it leaves the choice open, from
/// the palette of the platform's theme.
///
/// Lives on the main thread, made after the application and before anything sets its palette or style.
class DesktopScheme final : public QObject {
    Q_OBJECT

public:
    explicit DesktopScheme(QObject* parent = nullptr);

    [[nodiscard]] Scheme scheme() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The wish may have changed. The application's palette may be the platform's again.
    void schemeChanged();

private:
    void takePalette();

    PortalSetting m_portal;
    Scheme m_palette;
    bool m_paletteAsked = false;
};

}  // namespace morvak
