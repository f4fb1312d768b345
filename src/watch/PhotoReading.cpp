#include "watch/PhotoReading.h"

#include "watch/Thumbnail.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr int readableLongSide = 1600;  // pixels; a code on a smaller preview may be too small to read

bool isSmall(const QImage& image)
{
    return std::max(image.width(), image.height()) < readableLongSide;
}

}  // namespace

PhotoReading readPhoto(const QString& path, bool detectCode, const PhotoEyes& eyes,
                       const std::stop_token& stop)
{
    std::optional<QImage> image = PreviewImage::extractPreviewImageSync(path, eyes.tool);
    std::optional<QString> text;
    if (image && detectCode)
        text = eyes.detectQRText(*image, stop);
    if (detectCode && !text && (!image || isSmall(*image)) && !stop.stop_requested()) {
        const std::optional<QImage> own = PreviewImage::ownPicture(path, eyes.tool, stop);
        if (own)
            text = eyes.detectQRText(*own, stop);
        if (!image)
            image = own;
    }
    return {image ? makeThumbnail(*image) : QImage(), text};
}

}  // namespace morvak
