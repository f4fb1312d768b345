#include "watch/Thumbnail.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr QSize thumbnailSize(120, 80);

}  // namespace

QImage makeThumbnail(const QImage& image)
{
    if (image.isNull() || image.size() == thumbnailSize)
        return image;
    // Cutting first and scaling the rest gives the same picture without an image larger than the canvas.
    const double scale = std::max(double(thumbnailSize.width()) / image.width(),
                                  double(thumbnailSize.height()) / image.height());
    const QSize shown(std::clamp(qRound(thumbnailSize.width() / scale), 1, image.width()),
                      std::clamp(qRound(thumbnailSize.height() / scale), 1, image.height()));
    const QPoint origin((image.width() - shown.width()) / 2, (image.height() - shown.height()) / 2);
    return image.copy(QRect(origin, shown))
        .scaled(thumbnailSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace morvak
