#pragma once

#include "metadata/ToolAnswer.h"

#include <QByteArray>
#include <QImage>
#include <QString>

#include <functional>
#include <optional>
#include <stop_token>

namespace morvak {

/// The metadata tool as the preview needs it.
struct PreviewTool {
    std::function<bool()> exists;
    /// What the tool prints for these options and this file. Blocks.
    std::function<ToolAnswer(const QStringList& options, const QString& path)> read;
};

/// Previews and pictures of photos, upright and at most 4096 pixels on their long side. Stateless; blocks, so
/// never on the main thread.
class PreviewImage {
public:
    /// The preview that the camera embedded, else its thumbnail, else, in RAW files, its full-size JPEG.
    [[nodiscard]] static std::optional<QImage> extractPreviewImageSync(const QString& from,
                                                                       const PreviewTool& tool);

    /// The picture of a JPEG or TIFF file itself; none for other files: RAW data is never decoded.
    [[nodiscard]] static std::optional<QImage> ownPicture(const QString& path, const PreviewTool& tool,
                                                          const std::stop_token& stop);

    /// Decodes image bytes and turns the image by an orientation of the EXIF standard; 1 and values outside 1
    /// to 8 leave it as it is. None when the bytes are no JPEG or TIFF.
    [[nodiscard]] static std::optional<QImage> orientedImage(const QByteArray& from, qint32 exifOrientation);
};

/// What the tool is asked for the orientation of a photo.
[[nodiscard]] QStringList orientationOptions();

/// The orientation in the tool's answer: a signed decimal number with blanks around it; else 1.
[[nodiscard]] qint32 parseOrientation(const QByteArray& answer);

}  // namespace morvak
