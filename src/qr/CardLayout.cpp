#include "qr/CardLayout.h"

#include "qr/QRSymbol.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr double gapBelowCode = 8;
constexpr double besideCutLine = 4;  // what an unsteady hand cuts off

constexpr QRectF cellArea(QPointF(cardPageMargin, cardPageMargin),
                          QSizeF(cardPage.width() - 2 * cardPageMargin,
                                 cardPage.height() - 2 * cardPageMargin));

QSizeF cellSize(BulkQRDensity density)
{
    return cellArea.size() / measuresOf(density).perRow;
}

double lineHeight(double fontSize)
{
    return fontSize * 1.25 + 3;
}

}  // namespace

QList<QLineF> cutLines(BulkQRDensity density)
{
    const QSizeF cell = cellSize(density);
    QList<QLineF> lines;
    for (int i = 1; i < measuresOf(density).perRow; ++i) {
        const double x = cellArea.left() + i * cell.width();
        const double y = cellArea.top() + i * cell.height();
        lines.append(QLineF(x, cellArea.top(), x, cellArea.bottom()));
        lines.append(QLineF(cellArea.left(), y, cellArea.right(), y));
    }
    return lines;
}

QRectF cardCell(BulkQRDensity density, int index)
{
    const QSizeF cell = cellSize(density);
    const int perRow = measuresOf(density).perRow;
    const QPointF offset(index % perRow * cell.width(), index / perRow * cell.height());
    return {cellArea.topLeft() + offset, cell};
}

CardLayout layOutCard(const QRectF& cell, BulkQRDensity density, const QList<CardLine>& lines)
{
    const CardMeasures& measures = measuresOf(density);
    constexpr double descent = 3;
    CardLayout layout;
    double end = measures.qrSide + gapBelowCode;  // of what is laid out, below the block's top
    for (const CardLine& line : lines) {
        end += lineHeight(line.headline ? measures.headlineSize : measures.textSize);
        layout.baselines.append(end - descent);
    }
    const double top = cell.center().y() - end / 2;
    for (double& baseline : layout.baselines)
        baseline += top;
    layout.code = QRectF(cell.center().x() - measures.qrSide / 2, top, measures.qrSide, measures.qrSide);
    layout.text = cell;
    layout.text.setTop(layout.code.bottom() + gapBelowCode);
    return layout;
}

LinePlacement placeLine(const QRectF& cell, double inkStart, double inkWidth)
{
    const double room = cell.width() - 2 * besideCutLine;
    const double scale = inkWidth > room ? room / inkWidth : 1;
    const double start = inkStart * scale;
    const double width = inkWidth * scale;
    const double centred = cell.center().x() - width / 2 + start;
    const double leftmost = cell.left() + besideCutLine;
    const double ink = std::clamp(centred, leftmost, std::max(leftmost, leftmost + room - width));
    return {.origin = ink - start, .widthScale = scale};
}

double symbolSide(int modules, double square, double clearBelow)
{
    return std::min(square, (square / 2 + clearBelow) / (0.5 + double(quietZone) / modules));
}

}  // namespace morvak
