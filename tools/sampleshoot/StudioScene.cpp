#include "sampleshoot/StudioScene.h"

#include "sampleshoot/Cloth.h"
#include "sampleshoot/Figure.h"
#include "sampleshoot/Noise.h"
#include "sampleshoot/ProductStill.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <array>

namespace morvak::samples {

namespace {

constexpr double horizon = 0.76;  // where the paper's curve lies, as part of the height
constexpr double stand = 0.90;    // where things stand

QColor paperColour(Dice& dice)
{
    static constexpr std::array<QRgb, 6> papers{0xd8d0c6, 0xc9cfc8, 0xd9c3b4, 0xbfc8cf, 0xd6d2cf, 0xcfc4cb};
    return QColor(papers.at(dice() % papers.size()));
}

/// The paper from the roll down the wall, round the curve and over the floor.
void drawPaper(QPainter& painter, const QSizeF& size, const QColor& paper)
{
    const QRectF all(QPointF(0, 0), size);
    QLinearGradient down(0, 0, 0, size.height());
    down.setColorAt(0.00, paper.darker(112));
    down.setColorAt(0.45, paper.lighter(103));
    down.setColorAt(horizon - 0.06, paper.darker(103));
    down.setColorAt(horizon + 0.04, paper.darker(109));
    down.setColorAt(horizon + 0.12, paper.lighter(102));
    down.setColorAt(1.00, paper.lighter(106));
    painter.fillRect(all, down);

    QRadialGradient pool(size.width() * 0.40, size.height() * 0.36,
                         std::max(size.width(), size.height()) * 0.62);
    pool.setColorAt(0.0, QColor(255, 252, 245, 120));
    pool.setColorAt(0.6, QColor(255, 252, 245, 30));
    pool.setColorAt(1.0, QColor(255, 252, 245, 0));
    painter.fillRect(all, pool);
}

/// What shows beside the paper in a wide picture: the dark of the studio and the roll's edge.
void drawStudioBeside(QPainter& painter, const QSizeF& size)
{
    const double edge = size.width() * 0.075;
    for (const bool right : {false, true}) {
        const double outer = right ? size.width() : 0;
        const double inner = right ? size.width() - edge : edge;
        const double spread = (right ? 1 : -1) * size.width() * 0.05;
        QPainterPath dark(QPointF(outer, 0));
        dark.lineTo(inner, 0);
        dark.lineTo(inner, size.height() * horizon);
        dark.quadTo(inner, size.height() * (horizon + 0.06), inner + spread, size.height());
        dark.lineTo(outer, size.height());
        dark.closeSubpath();
        QLinearGradient fade(inner, 0, outer, 0);
        fade.setColorAt(0, QColor(0x5a, 0x55, 0x52));
        fade.setColorAt(1, QColor(0x3b, 0x38, 0x37));
        painter.fillPath(dark, fade);
    }
}

void drawVignette(QPainter& painter, const QSizeF& size)
{
    QRadialGradient edge(size.width() * 0.48, size.height() * 0.46,
                         std::hypot(size.width(), size.height()) * 0.58);
    edge.setColorAt(0.55, QColor(20, 16, 14, 0));
    edge.setColorAt(1.00, QColor(20, 16, 14, 95));
    painter.fillRect(QRectF(QPointF(0, 0), size), edge);
}

void drawSubject(QPainter& painter, const Outfit& outfit, const QSize& size, Dice& dice)
{
    const double floor = size.height() * stand;
    if (size.height() >= size.width())
        drawFigure(painter, outfit,
                   QPointF(size.width() * between(dice, 0.44, 0.54), floor + size.height() * 0.03),
                   size.height() * 0.82, dice);
    else if (dice() % 2 == 0)
        drawRail(painter, outfit, size, floor, dice);
    else
        drawPlinths(painter, outfit, size, floor, dice);
}

}  // namespace

QImage studioScene(const Outfit& outfit, const QSize& size, quint32 seed)
{
    Dice dice(seed);
    QImage image(size, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawPaper(painter, size, paperColour(dice));
        if (size.width() > size.height())
            drawStudioBeside(painter, size);
        drawSubject(painter, outfit, size, dice);
        drawVignette(painter, size);
    }
    addGrain(image, 2, seed);
    return image;
}

}  // namespace morvak::samples
