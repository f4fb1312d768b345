#include "sampleshoot/CardPhoto.h"

#include "qr/QRGenerator.h"
#include "sampleshoot/Cloth.h"
#include "sampleshoot/Noise.h"
#include "sampleshoot/StudioScene.h"

#include <QPainter>

#include <algorithm>

namespace morvak::samples {

namespace {

constexpr QSize cardSize(900, 1160);

/// Writes `text` in the largest size up to `pixels` that the card's width allows.
void writeCentred(QPainter& painter, int top, int pixels, bool bold, const QString& text)
{
    constexpr int widest = cardSize.width() - 80;
    QFont font;
    font.setBold(bold);
    font.setPixelSize(pixels);
    if (const int width = QFontMetrics(font).horizontalAdvance(text); width > widest)
        font.setPixelSize(std::max(1, pixels * widest / width));
    painter.setFont(font);
    painter.drawText(QRect(0, top, cardSize.width(), pixels * 3 / 2), Qt::AlignHCenter | Qt::AlignTop, text);
}

/// The card as it comes from the printer, with the light falling off towards its lower right.
QImage printedCard(const SetData& set, const QImage& code)
{
    QImage card(cardSize, QImage::Format_ARGB32_Premultiplied);
    card.fill(QColor(0xf7, 0xf5, 0xf0));
    QPainter painter(&card);
    painter.drawImage((cardSize.width() - code.width()) / 2, 60, code);
    painter.setPen(QColor(0x1e, 0x1c, 0x1b));
    QStringList who{set.model, set.location};
    who.removeAll(QString());
    writeCentred(painter, 845, 76, true, set.headline());
    writeCentred(painter, 965, 44, false, who.join(QStringLiteral(" · ")));
    writeCentred(painter, 1035, 44, false, set.description());

    QLinearGradient light(0, 0, cardSize.width(), cardSize.height());
    light.setColorAt(0.0, QColor(0, 0, 0, 0));
    light.setColorAt(1.0, QColor(30, 24, 20, 70));
    painter.fillRect(card.rect(), light);
    return card;
}

/// Where the card's corners lie in the picture: turned a little, and nearer to the camera on one side.
QPolygonF heldCorners(const QSize& picture, Dice& dice)
{
    const double shorter = std::min(picture.width(), picture.height());
    const double height = 0.56 * shorter;
    const double width = height * cardSize.width() / cardSize.height();
    QTransform turn;
    turn.translate(picture.width() * between(dice, 0.42, 0.58), picture.height() * 0.45);
    turn.rotate(between(dice, -9, 9));
    const double lean = between(dice, -0.06, 0.06);
    const double tip = between(dice, 0.0, 0.07);
    const QPolygonF flat{{-width / 2 * (1 - tip), -height / 2 * (1 + lean)},
                         {width / 2 * (1 - tip), -height / 2 * (1 - lean)},
                         {width / 2, height / 2 * (1 - lean)},
                         {-width / 2, height / 2 * (1 + lean)}};
    return turn.map(flat);
}

/// The arm that holds the card, from the lower edge of the picture to the card.
void drawArm(QPainter& painter, const QPointF& grip, double unit, double bottom, const QColor& sleeve,
             Dice& dice)
{
    const QPointF down(unit * 0.35, bottom - grip.y() + unit);
    QPainterPath arm(grip + QPointF(-unit * 0.42, -unit * 0.1));
    arm.cubicTo(grip + QPointF(-unit * 0.5, unit * 0.6), grip + down * 0.5 - QPointF(unit * 0.5, 0),
                grip + down - QPointF(unit * 0.55, 0));
    arm.lineTo(grip + down + QPointF(unit * 0.55, 0));
    arm.cubicTo(grip + down * 0.5 + QPointF(unit * 0.55, 0), grip + QPointF(unit * 0.62, unit * 0.7),
                grip + QPointF(unit * 0.45, -unit * 0.1));
    arm.closeSubpath();
    drawCloth(painter, arm, QColor(0xcf, 0x9f, 0x7e), dice, 0);
    painter.save();
    painter.setClipRect(QRectF(0, grip.y() + unit * 1.15, grip.x() * 4, bottom));
    drawCloth(painter, arm, sleeve, dice, 3);
    painter.restore();
}

/// The thumb lies on the card and hides nothing of the code.
void drawThumb(QPainter& painter, const QPointF& grip, double unit, Dice& dice)
{
    painter.save();
    painter.translate(grip + QPointF(-unit * 0.12, unit * 0.12));
    painter.rotate(-14);
    drawShadow(painter, QPointF(unit * 0.06, -unit * 0.1), unit * 0.30, unit * 0.48, 70);
    QPainterPath thumb;
    thumb.addRoundedRect(QRectF(-unit * 0.2, -unit * 0.42, unit * 0.4, unit * 0.95), unit * 0.2, unit * 0.2);
    drawCloth(painter, thumb, QColor(0xd8, 0xa8, 0x88), dice, 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xec, 0xc8, 0xb4));
    painter.drawRoundedRect(QRectF(-unit * 0.13, -unit * 0.37, unit * 0.26, unit * 0.3), unit * 0.12,
                            unit * 0.12);
    painter.restore();
}

}  // namespace

QImage cardPhoto(const SetData& set, const QSize& size, quint32 seed)
{
    const std::optional<QImage> code = QRGenerator::generate(set.toQRText(), 780);
    if (!code)
        return {};
    Dice dice(seed);
    const Outfit outfit = outfitOf(set);
    const double farBlur = std::max(size.width(), size.height()) / 180.0;
    QImage picture = softened(studioScene(outfit, size, seed), farBlur);
    const QPolygonF corners = heldCorners(size, dice);
    const QRectF flat(QPointF(0, 0), cardSize);
    QTransform held;
    QTransform::quadToQuad(QPolygonF{flat.topLeft(), flat.topRight(), flat.bottomRight(), flat.bottomLeft()},
                           corners, held);
    {
        QPainter painter(&picture);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        const QPointF grip = held.map(QPointF(cardSize.width() * 0.5, cardSize.height() * 1.0));
        const double unit = std::min(size.width(), size.height()) * 0.095;
        drawArm(painter, grip, unit, size.height(), outfit.topColour, dice);
        painter.save();
        painter.setTransform(held);
        // Shrinking in two steps keeps thin modules: the transform alone only looks at four pixels of the
        // card.
        painter.drawImage(QPointF(0, 0), printedCard(set, *code));
        painter.restore();
        drawThumb(painter, grip, unit, dice);
    }
    picture = softened(picture, 0.3);
    addGrain(picture, 4, seed);
    return picture;
}

}  // namespace morvak::samples
