#pragma once

#include "qr/BulkQRDensity.h"
#include "qr/CardText.h"

#include <QLineF>
#include <QList>
#include <QRectF>
#include <QSizeF>

namespace morvak {

/// Where everything stands on a page of cards. All lengths are in points (1/72 inch), x to the right and y
/// down from the page's top left corner. Pure, any thread.

inline constexpr QSizeF cardPage(595.28, 841.89);  ///< ISO 216 A4
constexpr double cardPageMargin = 24;

/// The lines to cut along, from margin to margin; no outer frame.
[[nodiscard]] QList<QLineF> cutLines(BulkQRDensity density);

/// The cell of a page's card number `index`, counted from 0, left to right and down.
[[nodiscard]] QRectF cardCell(BulkQRDensity density, int index);

/// One card in its cell: code and lines centred as a block.
struct CardLayout {
    QRectF code;              ///< a square
    QRectF text;              ///< what the lines may cover; as wide as the cell
    QList<double> baselines;  ///< one for each line
};
[[nodiscard]] CardLayout layOutCard(const QRectF& cell, BulkQRDensity density, const QList<CardLine>& lines);

/// How a line is drawn so that its ink stays in its cell, a little off the cut lines.
struct LinePlacement {
    double origin;      ///< x of the pen at its start
    double widthScale;  ///< 1, or less for a line that has to be narrowed
};

/// Of a line whose ink begins `inkStart` to the right of its origin and is `inkWidth` wide.
[[nodiscard]] LinePlacement placeLine(const QRectF& cell, double inkStart, double inkWidth);

/// The side that a symbol gets in the middle of the code's square of side `square`, when the paper below the
/// square stays white for `clearBelow`: all of it, or as much as leaves the symbol its quiet zone.
[[nodiscard]] double symbolSide(int modules, double square, double clearBelow);

}  // namespace morvak
