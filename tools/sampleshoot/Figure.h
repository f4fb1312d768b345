#pragma once

#include "sampleshoot/Cloth.h"
#include "sampleshoot/Outfit.h"

#include <QPainter>

namespace morvak::samples {

/// Draws a model in `outfit`, standing with the soles at `feet`, `height` pixels tall, with a shadow on the
/// floor. Pose, skin and hair come from the dice.
void drawFigure(QPainter& painter, const Outfit& outfit, const QPointF& feet, double height, Dice& dice);

}  // namespace morvak::samples
