#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>

#include <random>

namespace morvak::samples {

/// A random generator that gives the same picture for the same seed.
using Dice = std::mt19937;

/// A number between `low` and `high`.
[[nodiscard]] double between(Dice& dice, double low, double high);

/// Fills `outline` as cloth in studio light from the upper left: shaded across, with soft folds running from
/// its top to its hem and a thin edge.
void drawCloth(QPainter& painter, const QPainterPath& outline, const QColor& colour, Dice& dice,
               int folds = 7);

/// The colour with `part` (0 to 1) of white mixed in, as washed cloth has it.
[[nodiscard]] QColor faded(const QColor& colour, double part);

/// A soft round shadow on the floor.
void drawShadow(QPainter& painter, const QPointF& centre, double radiusX, double radiusY, int alpha);

/// A smooth closed outline through `points` on the right side of x = 0 (from top to bottom) and their mirror
/// images, moved to `x`.
[[nodiscard]] QPainterPath mirroredOutline(const QList<QPointF>& points, double x = 0);

}  // namespace morvak::samples
