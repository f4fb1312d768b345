#include "ui/base/theme/Icons.h"

#include "platform/Diagnostics.h"
#include "ui/base/theme/SymbolShape.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr float disabledOpacity = 0.4F;

QPixmap colouredSymbol(const QString& symbol, int pixels, const QColor& color)
{
    const QString key = u"morvak/%1/%2/%3"_s.arg(symbol).arg(pixels).arg(color.rgba());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QImage shape = symbolShape(symbol, pixels);
    if (shape.isNull())
        return {};
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), color);
    painter.end();
    pixmap = QPixmap::fromImage(shape);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Looks its colour up whenever it is painted.
class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(QString symbol, Role role, Icons::ColorSource colors)
        : m_symbol(std::move(symbol)), m_role(role), m_colors(std::move(colors))
    {
    }

    QIconEngine* clone() const override { return new SymbolEngine(*this); }  // the icon owns it
    QString key() const override { return u"morvak.symbol"_s; }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        const qreal dpr = painter->device()->devicePixelRatioF();
        painter->drawPixmap(square, draw(static_cast<int>(std::lround(side * dpr)), mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        return draw(std::min(size.width(), size.height()), mode);
    }

private:
    QPixmap draw(int pixels, QIcon::Mode mode) const
    {
        QColor color = m_colors(mode == QIcon::Selected ? Role::onAccent : m_role);
        if (mode == QIcon::Disabled)
            color.setAlphaF(disabledOpacity);
        return colouredSymbol(m_symbol, pixels, color);
    }

    QString m_symbol;
    Role m_role;
    Icons::ColorSource m_colors;
};

}  // namespace

Icons::Icons(ColorSource colors) : m_colors(std::move(colors)) {}

QStringList Icons::symbols()
{
    return symbolNames();
}

QIcon Icons::icon(const QString& symbol, Role role) const
{
    if (!symbolNames().contains(symbol)) {
        diagnostic(u"⚠️ Onbekend symbool: "_s + symbol);
        return {};
    }
    return QIcon(new SymbolEngine(symbol, role, m_colors));
}

QPixmap Icons::pixmap(const QString& symbol, int size, Role role, qreal dpr) const
{
    QPixmap pixmap = colouredSymbol(symbol, static_cast<int>(std::lround(size * dpr)), m_colors(role));
    pixmap.setDevicePixelRatio(dpr);
    return pixmap;
}

QIcon Icons::logo()
{
    return QIcon(u":/morvak/logo.svg"_s);
}

QIcon Icons::tray()
{
    return QIcon(u":/morvak/tray.svg"_s);
}

}  // namespace morvak
