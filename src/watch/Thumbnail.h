#pragma once

#include <QImage>

namespace morvak {

/// The image filling 120 x 80 pixels: scaled, centred, what falls outside cut off. Null for an empty image;
/// a thumbnail gives itself. Any thread.
[[nodiscard]] QImage makeThumbnail(const QImage& image);

}  // namespace morvak
