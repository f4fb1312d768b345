#pragma once

#include <QImage>

namespace morvak::samples {

/// The picture as it is stored so that a viewer who obeys `orientation` (Exif, 1 to 8) shows `upright`.
[[nodiscard]] QImage storedFor(const QImage& upright, int orientation);

}  // namespace morvak::samples
