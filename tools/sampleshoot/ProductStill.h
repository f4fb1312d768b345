#pragma once

#include "sampleshoot/Cloth.h"
#include "sampleshoot/Outfit.h"

#include <QPainter>

namespace morvak::samples {

/// A clothes rail with the outfit's garments; `floor` is the height in pixels at which it stands.
void drawRail(QPainter& painter, const Outfit& outfit, const QSizeF& canvas, double floor, Dice& dice);

/// Bag, knitwear and a ball on plinths of painted wood.
void drawPlinths(QPainter& painter, const Outfit& outfit, const QSizeF& canvas, double floor, Dice& dice);

}  // namespace morvak::samples
