#include "sampleshoot/Cloth.h"

#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>

namespace morvak::samples {

namespace {

/// One fold: a wide, faint stroke in the dark and a narrower one in the light beside it.
void drawFold(QPainter& painter, const QRectF& box, Dice& dice)
{
    const double x = between(dice, box.left(), box.right());
    const double lean = between(dice, -0.10, 0.10) * box.width();
    const double top = box.top() + box.height() * between(dice, -0.05, 0.45);
    const double width = box.width() * between(dice, 0.02, 0.06);
    const double bend = between(dice, -0.06, 0.06) * box.width();
    QPainterPath fold(QPointF(x, top));
    fold.cubicTo(x + bend, top + box.height() * 0.25, x + lean - bend, box.bottom() - box.height() * 0.25,
                 x + lean, box.bottom());
    for (const double spread : {2.4, 1.5, 0.8}) {
        painter.setPen(QPen(QColor(0, 0, 0, 11), width * spread, Qt::SolidLine, Qt::RoundCap));
        painter.drawPath(fold);
        painter.setPen(QPen(QColor(255, 255, 255, 8), width * spread, Qt::SolidLine, Qt::RoundCap));
        painter.drawPath(fold.translated(-1.6 * width, 0));
    }
}

/// A Catmull-Rom spline through `points`, appended to `path`, which stands at the first of them.
void addSpline(QPainterPath& path, const QList<QPointF>& points)
{
    for (qsizetype i = 0; i + 1 < points.size(); ++i) {
        const QPointF before = points.at(std::max<qsizetype>(i - 1, 0));
        const QPointF after = points.at(std::min<qsizetype>(i + 2, points.size() - 1));
        path.cubicTo(points.at(i) + (points.at(i + 1) - before) / 6,
                     points.at(i + 1) - (after - points.at(i)) / 6, points.at(i + 1));
    }
}

}  // namespace

double between(Dice& dice, double low, double high)
{
    return low + (high - low) * static_cast<double>(dice()) / static_cast<double>(Dice::max());
}

void drawCloth(QPainter& painter, const QPainterPath& outline, const QColor& colour, Dice& dice, int folds)
{
    const QRectF box = outline.boundingRect();
    painter.save();
    QLinearGradient across(box.topLeft(), QPointF(box.right(), box.top() + box.height() * 0.25));
    across.setColorAt(0.0, colour.lighter(104));
    across.setColorAt(0.3, colour.lighter(116));
    across.setColorAt(0.65, colour);
    across.setColorAt(1.0, colour.darker(142));
    painter.fillPath(outline, across);

    painter.setClipPath(outline, Qt::IntersectClip);
    for (int i = 0; i < folds; ++i)
        drawFold(painter, box, dice);
    QLinearGradient down(box.topLeft(), box.bottomLeft());
    down.setColorAt(0.0, QColor(255, 255, 255, 22));
    down.setColorAt(0.4, QColor(255, 255, 255, 0));
    down.setColorAt(1.0, QColor(0, 0, 0, 42));
    painter.fillRect(box, down);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 40), box.width() * 0.012));
    painter.drawPath(outline);
    painter.restore();
}

QColor faded(const QColor& colour, double part)
{
    const auto towardsWhite = [part](int channel) {
        return channel + static_cast<int>((255 - channel) * part);
    };
    return QColor(towardsWhite(colour.red()), towardsWhite(colour.green()), towardsWhite(colour.blue()));
}

void drawShadow(QPainter& painter, const QPointF& centre, double radiusX, double radiusY, int alpha)
{
    QRadialGradient fade(QPointF(0, 0), 1);
    fade.setColorAt(0.0, QColor(30, 24, 20, alpha));
    fade.setColorAt(0.45, QColor(30, 24, 20, alpha * 45 / 100));
    fade.setColorAt(1.0, QColor(30, 24, 20, 0));
    painter.save();
    painter.translate(centre);
    painter.scale(radiusX, radiusY);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fade);
    painter.drawEllipse(QPointF(0, 0), 1, 1);
    painter.restore();
}

QPainterPath mirroredOutline(const QList<QPointF>& points, double x)
{
    QList<QPointF> left;
    for (auto point = points.crbegin(); point != points.crend(); ++point)
        left.append(QPointF(-point->x(), point->y()));
    QPainterPath path(points.first());
    addSpline(path, points);
    path.lineTo(left.first());
    addSpline(path, left);
    path.closeSubpath();
    return path.translated(x, 0);
}

}  // namespace morvak::samples
