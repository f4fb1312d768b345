#include "ui/base/theme/DesktopScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace morvak {

std::optional<Scheme> schemeOfPortal(uint colorScheme)
{
    if (colorScheme == 1)
        return Scheme::dark;
    if (colorScheme == 2)
        return Scheme::light;
    return std::nullopt;
}

Scheme schemeOfPalette(const QPalette& palette)
{
    const bool lightOnDark =
        palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
    return lightOnDark ? Scheme::dark : Scheme::light;
}

DesktopScheme::DesktopScheme(QObject* parent)
    : QObject(parent),
      m_portal(u"org.freedesktop.appearance"_s, u"color-scheme"_s),
      m_palette(schemeOfPalette(QGuiApplication::palette()))
{
    connect(&m_portal, &PortalSetting::valueChanged, this, &DesktopScheme::schemeChanged);
    qApp->installEventFilter(this);
}

Scheme DesktopScheme::scheme() const
{
    return schemeOfPortal(m_portal.value().toUInt()).value_or(m_palette);
}

bool DesktopScheme::eventFilter(QObject* watched, QEvent* event)
{
    // Every window gets one, and setting palettes in the middle of that would be asking for trouble.
    if (event->type() == QEvent::ThemeChange && !m_paletteAsked) {
        m_paletteAsked = true;
        QMetaObject::invokeMethod(this, &DesktopScheme::takePalette, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void DesktopScheme::takePalette()
{
    m_paletteAsked = false;
    QGuiApplication::setPalette(QPalette());  // without ours, the platform's shows
    m_palette = schemeOfPalette(QGuiApplication::palette());
    Q_EMIT schemeChanged();
}

}  // namespace morvak
