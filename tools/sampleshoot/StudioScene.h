#pragma once

#include "sampleshoot/Outfit.h"

#include <QImage>

namespace morvak::samples {

/// A photo from the studio: seamless paper, soft light from the upper left, and on the floor a model in
/// `outfit` (upright pictures) or the outfit's pieces on a rail or plinths (wide ones). The same seed gives
/// the same picture.
[[nodiscard]] QImage studioScene(const Outfit& outfit, const QSize& size, quint32 seed);

}  // namespace morvak::samples
