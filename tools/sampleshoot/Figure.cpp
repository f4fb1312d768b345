#include "sampleshoot/Figure.h"

#include <array>

namespace morvak::samples {

namespace {

constexpr double heads =
    8.6;  // a fashion figure; one unit is the height of the head, y counts from the crown

struct Person {
    QColor skin;
    QColor hair;
    bool bun = false;
    double step = 0;  // how far the free leg stands out
};

Person somebody(Dice& dice)
{
    static constexpr std::array<QRgb, 4> skins{0xe8bfa2, 0xc68d66, 0x8a5a3c, 0xdba883};
    static constexpr std::array<QRgb, 4> hairs{0x2a211d, 0x5b3a24, 0xb98d55, 0x3a2a2a};
    return {.skin = QColor(skins.at(dice() % skins.size())),
            .hair = QColor(hairs.at(dice() % hairs.size())),
            .bun = dice() % 2 == 0,
            .step = between(dice, 0.10, 0.30)};
}

QPainterPath limb(const QList<QPointF>& outer, const QList<QPointF>& inner)
{
    QPainterPath path(outer.first());
    for (qsizetype i = 1; i < outer.size(); ++i) {
        const QPointF middle = (outer.at(i - 1) + outer.at(i)) / 2;
        path.quadTo(QPointF(middle.x() * 1.02, middle.y()), outer.at(i));
    }
    for (qsizetype i = inner.size() - 1; i >= 0; --i)
        path.lineTo(inner.at(i));
    path.closeSubpath();
    return path;
}

void drawSkin(QPainter& painter, const QPainterPath& outline, const QColor& skin)
{
    const QRectF box = outline.boundingRect();
    QLinearGradient light(box.topLeft(), box.topRight());
    light.setColorAt(0.0, skin.lighter(108));
    light.setColorAt(0.5, skin);
    light.setColorAt(1.0, skin.darker(135));
    painter.fillPath(outline, light);
}

void drawLegs(QPainter& painter, const Outfit& outfit, const Person& person)
{
    for (const double side : {-1.0, 1.0}) {
        const double foot = side * (0.30 + (side > 0 ? person.step : 0.02));
        const QPainterPath leg =
            limb({{side * 0.60, 3.9}, {foot + side * 0.20, 6.2}, {foot + side * 0.12, 8.2}},
                 {{side * 0.02, 4.2}, {foot - side * 0.14, 6.2}, {foot - side * 0.11, 8.2}});
        drawSkin(painter, leg, person.skin);
        QPainterPath shoe(QPointF(foot - side * 0.15, 8.05));
        shoe.cubicTo(foot - side * 0.20, 8.5, foot - side * 0.1, 8.6, foot + side * 0.05, 8.6);
        shoe.cubicTo(foot + side * 0.42, 8.62, foot + side * 0.42, 8.42, foot + side * 0.16, 8.08);
        shoe.closeSubpath();
        painter.fillPath(shoe, outfit.accentColour.darker(130));
    }
}

void drawBottom(QPainter& painter, const Outfit& outfit, const Person& person, Dice& dice)
{
    if (outfit.bottom == Outfit::Bottom::Skirt) {
        const QPainterPath skirt = mirroredOutline({{0.48, 3.0}, {0.72, 3.9}, {0.98, 5.2}, {1.12, 6.4}});
        drawCloth(painter, skirt, outfit.bottomColour, dice, 12);
        return;
    }
    for (const double side : {-1.0, 1.0}) {
        const double foot = side * (0.32 + (side > 0 ? person.step : 0.02));
        QPainterPath leg(QPointF(side * -0.02, 3.0));
        leg.lineTo(side * 0.50, 3.0);
        leg.cubicTo(side * 0.68, 3.5, side * 0.74, 4.0, foot + side * 0.38, 5.6);
        leg.lineTo(foot + side * 0.34, 8.15);
        leg.quadTo(foot, 8.24, foot - side * 0.26, 8.15);
        leg.cubicTo(foot - side * 0.26, 6.0, side * 0.10, 5.0, side * -0.02, 4.35);
        leg.closeSubpath();
        drawCloth(painter, leg, outfit.bottomColour, dice, 4);
    }
}

void drawArm(QPainter& painter, const Outfit& outfit, const Person& person, double side, Dice& dice)
{
    const double out = between(dice, 0.0, 0.18);
    const double sleeveEnd = outfit.top == Outfit::Top::Dress ? 2.3 : 3.85;
    const auto reach = [&](double y) {
        return side * (0.86 + 0.24 * (y - 1.5) / 2.4 + out * (y - 1.5) / 2.6);
    };
    QPainterPath hand;
    hand.addEllipse(QPointF(reach(4.2), 4.2), 0.12, 0.27);
    drawSkin(painter, hand, person.skin);
    drawSkin(painter,
             limb({{reach(1.5) + side * 0.08, 1.55},
                   {reach(2.9) + side * 0.10, 2.9},
                   {reach(4.1) + side * 0.07, 4.1}},
                  {{reach(1.5) - side * 0.20, 1.75},
                   {reach(2.9) - side * 0.14, 2.9},
                   {reach(4.1) - side * 0.08, 4.1}}),
             person.skin);
    const double wide = outfit.top == Outfit::Top::Coat ? 0.07 : 0.03;
    QPainterPath sleeve(QPointF(side * 0.55, 1.42));
    sleeve.quadTo(side * 1.0, 1.42, reach(2.1) + side * (0.16 + wide), 2.1);
    sleeve.lineTo(reach(sleeveEnd) + side * (0.13 + wide), sleeveEnd);
    sleeve.lineTo(reach(sleeveEnd) - side * (0.16 + wide), sleeveEnd + 0.03);
    sleeve.lineTo(side * 0.62, 2.25);
    sleeve.closeSubpath();
    drawCloth(painter, sleeve, outfit.topColour, dice, 4);
}

void drawHead(QPainter& painter, const Person& person)
{
    QPainterPath behind;
    if (person.bun)
        behind.addEllipse(QPointF(0.05, -0.12), 0.24, 0.22);
    else
        behind = mirroredOutline({{0.10, 0.0}, {0.44, 0.25}, {0.50, 0.8}, {0.42, 1.25}});
    painter.fillPath(behind, person.hair.darker(115));
    drawSkin(painter, mirroredOutline({{0.15, 0.75}, {0.15, 1.1}, {0.32, 1.42}, {0.20, 1.75}}),
             person.skin.darker(112));
    QPainterPath face;
    face.addEllipse(QPointF(0, 0.52), 0.34, 0.47);
    drawSkin(painter, face, person.skin);
    QPainterPath fringe(QPointF(-0.37, 0.62));
    fringe.cubicTo(-0.46, -0.08, 0.46, -0.08, 0.37, 0.62);
    fringe.cubicTo(0.30, 0.30, 0.10, 0.18, -0.06, 0.20);
    fringe.cubicTo(-0.22, 0.24, -0.32, 0.40, -0.37, 0.62);
    painter.fillPath(fringe, person.hair);
}

/// Collar, buttons, lapels: what tells one kind of top from another.
void drawTopDetails(QPainter& painter, const Outfit& outfit)
{
    const QPen seam(QColor(0, 0, 0, 70), 0.018, Qt::SolidLine, Qt::RoundCap);
    painter.setPen(seam);
    switch (outfit.top) {
        case Outfit::Top::Shirt:
            painter.drawLine(QPointF(0, 1.6), QPointF(0, 3.7));
            for (double y = 1.85; y < 3.7; y += 0.4)
                painter.drawEllipse(QPointF(0.04, y), 0.022, 0.022);
            painter.setBrush(outfit.topColour.lighter(118));
            painter.drawPolygon(QPolygonF{{-0.26, 1.32}, {0.0, 1.66}, {-0.24, 1.84}, {-0.36, 1.44}});
            painter.drawPolygon(QPolygonF{{0.26, 1.32}, {0.0, 1.66}, {0.24, 1.84}, {0.36, 1.44}});
            break;
        case Outfit::Top::Coat:
            painter.setBrush(outfit.topColour.lighter(112));
            painter.drawPolygon(
                QPolygonF{{-0.30, 1.34}, {-0.02, 2.75}, {-0.42, 2.15}, {-0.34, 1.95}, {-0.48, 1.8}});
            painter.drawPolygon(
                QPolygonF{{0.30, 1.34}, {-0.02, 2.75}, {0.42, 2.15}, {0.34, 1.95}, {0.48, 1.8}});
            painter.drawLine(QPointF(-0.02, 2.75), QPointF(0.04, 5.7));
            for (const double y : {3.0, 3.45, 3.9})
                painter.drawEllipse(QPointF(0.10, y), 0.045, 0.045);
            break;
        case Outfit::Top::Knit:
            painter.setPen(QPen(QColor(0, 0, 0, 45), 0.014));
            for (double x = -0.56; x < 0.58; x += 0.07)
                painter.drawLine(QPointF(x, 3.45), QPointF(x * 1.01, 3.72));
            painter.setPen(QPen(outfit.topColour.darker(118), 0.09, Qt::SolidLine, Qt::RoundCap));
            painter.drawArc(QRectF(-0.28, 1.16, 0.56, 0.42), 190 * 16, 160 * 16);
            break;
        case Outfit::Top::Dress:
            painter.setPen(QPen(outfit.topColour.darker(135), 0.07));
            painter.drawLine(QPointF(-0.50, 3.02), QPointF(0.50, 3.02));
            break;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::NoBrush);
}

void drawTop(QPainter& painter, const Outfit& outfit, Dice& dice)
{
    QList<QPointF> edge{{0.24, 1.36}, {0.62, 1.44}, {0.80, 1.60}, {0.66, 2.2}};
    switch (outfit.top) {
        case Outfit::Top::Dress:
            edge += {{0.52, 3.0}, {0.78, 4.0}, {1.00, 5.4}, {1.12, 6.5}};
            break;
        case Outfit::Top::Coat:
            edge += {{0.62, 3.0}, {0.80, 4.0}, {0.86, 5.0}, {0.88, 5.75}};
            break;
        default:
            edge += {{0.58, 3.0}, {0.64, 3.4}, {0.66, 3.75}};
    }
    drawCloth(painter, mirroredOutline(edge), outfit.topColour, dice,
              outfit.top == Outfit::Top::Dress ? 12 : 6);
    drawTopDetails(painter, outfit);
}

void drawBag(QPainter& painter, const Outfit& outfit, Dice& dice)
{
    painter.setPen(QPen(outfit.accentColour.darker(140), 0.05));
    painter.drawArc(QRectF(1.02, 3.95, 0.55, 0.95), 0, 180 * 16);
    painter.setPen(Qt::NoPen);
    QPainterPath bag;
    bag.addRoundedRect(QRectF(0.86, 4.42, 0.88, 0.72), 0.1, 0.1);
    drawCloth(painter, bag, outfit.accentColour, dice, 2);
}

}  // namespace

void drawFigure(QPainter& painter, const Outfit& outfit, const QPointF& feet, double height, Dice& dice)
{
    const Person person = somebody(dice);
    const double unit = height / heads;
    drawShadow(painter, feet + QPointF(unit * 0.9, 0), unit * 2.6, unit * 0.34, 90);
    drawShadow(painter, feet, unit * 0.95, unit * 0.16, 150);
    painter.save();
    painter.translate(feet.x(), feet.y() - height);
    painter.scale(unit, unit);
    painter.setPen(Qt::NoPen);
    drawLegs(painter, outfit, person);
    if (outfit.top != Outfit::Top::Dress)
        drawBottom(painter, outfit, person, dice);
    drawArm(painter, outfit, person, -1, dice);
    drawArm(painter, outfit, person, 1, dice);
    drawHead(painter, person);
    drawTop(painter, outfit, dice);
    if (dice() % 2 == 0)
        drawBag(painter, outfit, dice);
    painter.restore();
}

}  // namespace morvak::samples
