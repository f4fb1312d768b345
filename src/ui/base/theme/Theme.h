#pragma once

#include "ui/base/theme/Colors.h"
#include "ui/base/theme/DesktopScheme.h"
#include "ui/base/theme/Fonts.h"
#include "ui/base/theme/Icons.h"

#include <QObject>

namespace morvak {

/// How Morvak looks: colours, fonts and icons, in a light and a dark scheme.
///
/// Made once, on the main thread, after the QApplication and before the first widget; outlives all of them.
/// It dresses the application (Fusion, palette, style sheet, icon theme) and dresses it anew when the scheme
/// changes. Widgets of the blocks follow by themselves; who paints by hand asks for `color` at every paint.
class Theme final : public QObject {
    Q_OBJECT

public:
    enum class Choice { system, light, dark };

    explicit Theme(QObject* parent = nullptr);
    ~Theme() override;

    [[nodiscard]] Choice choice() const { return m_choice; }
    /// Follows the desktop with `system`, which is what it starts with.
    void setChoice(Choice choice);

    [[nodiscard]] Scheme scheme() const { return m_scheme; }
    [[nodiscard]] QColor color(Role role) const { return colorOf(role, m_scheme); }
    [[nodiscard]] QFont font(TextStyle style) const { return styledFont(m_interfaceFont, style); }
    /// The same font with digits of equal width.
    [[nodiscard]] static QFont tabular(const QFont& font) { return tabularFont(font); }
    [[nodiscard]] const Icons& icons() const { return m_icons; }

    /// False where the desktop asks for no animations.
    [[nodiscard]] bool animates() const;

Q_SIGNALS:
    /// The scheme has changed and the application wears it.
    void changed();

private:
    void renew();
    void dress();

    QFont m_interfaceFont;
    DesktopScheme m_desktop;
    PortalSetting m_animations;
    Icons m_icons;
    Choice m_choice = Choice::system;
    Scheme m_scheme;
};

}  // namespace morvak
