#include "ui/base/theme/Theme.h"

#include "ui/base/theme/StyleSheet.h"
#include "ui/base/theme/SymbolShape.h"

#include <QApplication>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace morvak {

Theme::Theme(QObject* parent)
    : QObject(parent),
      m_interfaceFont(QApplication::font()),
      m_animations(u"org.gnome.desktop.interface"_s, u"enable-animations"_s),
      m_icons([this](Role role) { return color(role); }),
      m_scheme(m_desktop.scheme())
{
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setFont(font(TextStyle::body));
    QApplication::setWindowIcon(Icons::logo());
    dress();
    connect(&m_desktop, &DesktopScheme::schemeChanged, this, &Theme::renew);
}

Theme::~Theme() = default;

void Theme::setChoice(Choice choice)
{
    if (choice == m_choice)
        return;
    m_choice = choice;
    renew();
}

bool Theme::animates() const
{
    const QVariant& wish = m_animations.value();
    return (!wish.isValid() || wish.toBool()) &&
           QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

void Theme::renew()
{
    const Scheme before = m_scheme;
    m_scheme = m_choice == Choice::light  ? Scheme::light
               : m_choice == Choice::dark ? Scheme::dark
                                          : m_desktop.scheme();
    dress();
    if (m_scheme != before)
        Q_EMIT changed();
}

void Theme::dress()
{
    installIconTheme(m_scheme == Scheme::dark);
    QApplication::setPalette(paletteOf(m_scheme));
    qApp->setStyleSheet(styleSheetOf(m_scheme));
}

}  // namespace morvak
