#include "sampleshoot/ProductStill.h"

#include <QRadialGradient>

namespace morvak::samples {

namespace {

void drawTube(QPainter& painter, const QPointF& from, const QPointF& to, double width)
{
    painter.setPen(QPen(QColor(70, 66, 64), width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from, to);
    painter.setPen(QPen(QColor(165, 158, 150), width * 0.35, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from - QPointF(width * 0.15, width * 0.15), to - QPointF(width * 0.15, width * 0.15));
    painter.setPen(Qt::NoPen);
}

/// A garment on a hanger: shoulders one unit wide on each side, `length` units long.
void drawHanging(QPainter& painter, const QPointF& hook, double unit, double length, const QColor& colour,
                 Dice& dice)
{
    painter.save();
    painter.translate(hook);
    painter.scale(unit, unit);
    painter.rotate(between(dice, -1.5, 1.5));
    painter.setPen(QPen(QColor(90, 84, 80), 0.05, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(-0.12, -0.16, 0.24, 0.26), -60 * 16, 240 * 16);
    painter.drawLine(QPointF(0.0, 0.1), QPointF(0.0, 0.34));
    painter.setPen(Qt::NoPen);
    for (const double side : {-1.0, 1.0}) {
        QPainterPath sleeve(QPointF(side * 0.5, 0.5));
        sleeve.quadTo(side * 0.95, 0.55, side * 1.08, 1.0);
        sleeve.lineTo(side * 1.16, 0.4 + length * 0.78);
        sleeve.lineTo(side * 0.86, 0.44 + length * 0.78);
        sleeve.lineTo(side * 0.66, 1.2);
        sleeve.closeSubpath();
        drawCloth(painter, sleeve, colour.darker(106), dice, 3);
    }
    const double flare = between(dice, 0.80, 0.98);
    drawCloth(painter,
              mirroredOutline({{0.2, 0.32}, {0.62, 0.46}, {0.86, 0.66}, {0.76, 1.4}, {flare, length + 0.3}}),
              colour, dice, 8);
    painter.setPen(QPen(QColor(0, 0, 0, 60), 0.02));
    painter.drawLine(QPointF(0, 0.6), QPointF(0, length + 0.28));
    painter.restore();
}

/// A box in three tones, `depth` giving its side and top.
void drawBox(QPainter& painter, const QRectF& front, double depth, const QColor& colour)
{
    drawShadow(painter, QPointF(front.center().x() + depth, front.bottom()), front.width() * 0.95,
               depth * 0.9, 110);
    const QPointF back(depth, -depth * 0.55);
    QLinearGradient light(front.topLeft(), front.bottomRight());
    light.setColorAt(0, colour.lighter(106));
    light.setColorAt(1, colour.darker(112));
    painter.fillRect(front, light);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour.lighter(114));
    painter.drawPolygon(
        QPolygonF{front.topLeft(), front.topRight(), front.topRight() + back, front.topLeft() + back});
    painter.setBrush(colour.darker(132));
    painter.drawPolygon(QPolygonF{front.topRight(), front.bottomRight(), front.bottomRight() + back,
                                  front.topRight() + back});
}

void drawHandbag(QPainter& painter, const QPointF& base, double width, const QColor& colour, Dice& dice)
{
    drawShadow(painter, base + QPointF(width * 0.1, 0), width * 0.62, width * 0.07, 150);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour.darker(140), width * 0.045, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(base.x() - width * 0.26, base.y() - width * 1.02, width * 0.52, width * 0.8), 0,
                    180 * 16);
    painter.setPen(Qt::NoPen);
    const QPointF top = base - QPointF(0, width * 0.66);
    QPainterPath body(top + QPointF(-width * 0.42, 0));
    body.quadTo(top + QPointF(0, width * 0.05), top + QPointF(width * 0.42, 0));
    body.cubicTo(base + QPointF(width * 0.5, -width * 0.3), base + QPointF(width * 0.52, 0),
                 base + QPointF(width * 0.44, 0));
    body.lineTo(base - QPointF(width * 0.44, 0));
    body.cubicTo(base + QPointF(-width * 0.52, 0), base + QPointF(-width * 0.5, -width * 0.3),
                 top - QPointF(width * 0.42, 0));
    drawCloth(painter, body, colour, dice, 3);
    QPainterPath flap(top + QPointF(-width * 0.42, 0));
    flap.lineTo(top + QPointF(width * 0.42, 0));
    flap.cubicTo(top + QPointF(width * 0.36, width * 0.42), top + QPointF(-width * 0.36, width * 0.42),
                 top - QPointF(width * 0.42, 0));
    drawCloth(painter, flap, colour.lighter(108), dice, 2);
    painter.setBrush(QColor(0xd9, 0xb8, 0x6a));
    painter.drawEllipse(top + QPointF(0, width * 0.3), width * 0.035, width * 0.035);
}

void drawFoldedStack(QPainter& painter, const QPointF& base, double width, const QList<QColor>& colours,
                     Dice& dice)
{
    drawShadow(painter, base + QPointF(width * 0.08, 0), width * 0.65, width * 0.08, 140);
    double y = base.y();
    for (const QColor& colour : colours) {
        const double thick = width * between(dice, 0.13, 0.17);
        const double inset = width * between(dice, 0.0, 0.03);
        QPainterPath fold;
        fold.addRoundedRect(QRectF(base.x() - width / 2 + inset, y - thick, width - 2 * inset, thick),
                            thick * 0.48, thick * 0.48);
        drawCloth(painter, fold, colour, dice, 2);
        painter.setPen(QPen(QColor(0, 0, 0, 60), thick * 0.05));
        painter.drawLine(QPointF(base.x() - width * 0.44, y - thick * 0.45),
                         QPointF(base.x() + width * 0.46, y - thick * 0.5));
        painter.setPen(Qt::NoPen);
        y -= thick;
    }
}

void drawBall(QPainter& painter, const QPointF& base, double radius, const QColor& colour)
{
    drawShadow(painter, base + QPointF(radius * 0.5, 0), radius * 1.5, radius * 0.25, 150);
    const QPointF centre = base - QPointF(0, radius);
    QRadialGradient light(centre - QPointF(radius * 0.35, radius * 0.4), radius * 1.5);
    light.setColorAt(0, colour.lighter(135));
    light.setColorAt(0.5, colour);
    light.setColorAt(1, colour.darker(180));
    painter.setBrush(light);
    painter.drawEllipse(centre, radius, radius);
}

}  // namespace

void drawRail(QPainter& painter, const Outfit& outfit, const QSizeF& canvas, double floor, Dice& dice)
{
    const double span = canvas.width() * 0.58;
    const double left = (canvas.width() - span) / 2;
    const double top = floor - canvas.height() * 0.62;
    const double tube = canvas.height() * 0.014;
    for (const double x : {left, left + span}) {
        drawShadow(painter, QPointF(x, floor), canvas.height() * 0.16, canvas.height() * 0.022, 120);
        drawTube(painter, QPointF(x - span * 0.05, floor), QPointF(x + span * 0.05, floor), tube);
        drawTube(painter, QPointF(x, floor), QPointF(x, top), tube);
    }
    drawShadow(painter, QPointF(canvas.width() * 0.52, floor), span * 0.6, canvas.height() * 0.035, 80);
    drawTube(painter, QPointF(left - span * 0.03, top), QPointF(left + span * 1.03, top), tube);

    const QList<QColor> colours{outfit.topColour, outfit.bottomColour, faded(outfit.topColour, 0.35),
                                outfit.accentColour, outfit.topColour.darker(125)};
    const double unit = span / 9.5;
    for (qsizetype i = 0; i < colours.size(); ++i) {
        const QPointF hook(
            left + span * (0.13 + 0.185 * static_cast<double>(i)) + between(dice, -0.1, 0.1) * unit,
            top + unit * 0.1);
        drawHanging(painter, hook, unit, between(dice, 2.4, 3.6), colours.at(i), dice);
    }
}

void drawPlinths(QPainter& painter, const Outfit& outfit, const QSizeF& canvas, double floor, Dice& dice)
{
    const double h = canvas.height();
    const double x = canvas.width() * 0.5;
    const QColor wood(0xe3, 0xdb, 0xd0);
    const QRectF tall(x - h * 0.42, floor - h * 0.40, h * 0.36, h * 0.40);
    const QRectF low(x + h * 0.03, floor - h * 0.20, h * 0.44, h * 0.24);
    drawBox(painter, tall, h * 0.09, wood);
    drawHandbag(painter, QPointF(tall.center().x() + h * 0.04, tall.top() - h * 0.018), h * 0.33,
                outfit.accentColour, dice);
    drawBox(painter, low, h * 0.09, wood.darker(104));
    drawFoldedStack(painter, QPointF(low.center().x() + h * 0.04, low.top() - h * 0.018), h * 0.34,
                    {outfit.bottomColour, outfit.topColour, faded(outfit.topColour, 0.5)}, dice);
    drawBall(painter, QPointF(x - h * 0.58, floor + h * 0.03), h * 0.075, faded(outfit.topColour, 0.2));
}

}  // namespace morvak::samples
