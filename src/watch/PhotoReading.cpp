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

/// The tool, with its answer about this photo's orientation kept: preview and own picture are turned alike.
PreviewTool knowingOrientation(const PreviewTool& tool)
{
    const auto read = [tool, known = std::optional<QByteArray>()](const QStringList& options,
                                                                  const QString& path) mutable {
        if (options != orientationOptions())
            return tool.read(options, path);
        if (!known)
            known = tool.read(options, path);
        return *known;
    };
    return {tool.exists, read};
}

}  // namespace

PhotoReading readPhoto(const QString& path, bool detectCode, const PhotoEyes& eyes,
                       const std::stop_token& stop)
{
    const PreviewTool tool = knowingOrientation(eyes.tool);
    std::optional<QImage> image = PreviewImage::extractPreviewImageSync(path, tool);
    std::optional<QString> text;
    if (image && detectCode)
        text = eyes.detectQRText(*image, stop);
    if (detectCode && !text && (!image || isSmall(*image)) && !stop.stop_requested()) {
        const std::optional<QImage> own = PreviewImage::ownPicture(path, tool, stop);
        if (own)
            text = eyes.detectQRText(*own, stop);
        if (!image)
            image = own;
    }
    return {image ? makeThumbnail(*image) : QImage(), text};
}

}  // namespace morvak
