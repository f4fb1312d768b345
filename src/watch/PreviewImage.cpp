#include "watch/PreviewImage.h"

#include "platform/Diagnostics.h"
#include "platform/FileName.h"
#include "platform/PhotoFile.h"
#include "watch/PhotoTypes.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <memory>
#include <mutex>

namespace morvak {

namespace {

constexpr int longestSide = 4096;
constexpr int decodedMegabytesAtMost = 1024;  // a 16-bit TIFF of 100 megapixels

/// Halves until the picture is small enough: a JPEG decoder does that for nothing while it decodes, and a
/// large picture never stands in memory whole.
QSize decodedSize(QSize size)
{
    while (std::max(size.width(), size.height()) > longestSide)
        size = QSize((size.width() + 1) / 2, (size.height() + 1) / 2);
    return size;
}

std::optional<QImage> decode(QIODevice& device)
{
    QImageReader reader(&device);
    reader.setAutoTransform(false);
    reader.setDecideFormatFromContent(true);
    if (const QByteArray format = reader.format(); format != "jpeg" && format != "tiff")
        return std::nullopt;  // no camera writes it, and bytes from outside see no other decoder
    if (const QSize size = reader.size(); decodedSize(size) != size)
        reader.setScaledSize(decodedSize(size));
    QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return image;
}

/// A mirroring and a number of quarter turns clockwise, as the EXIF standard numbers them.
QImage upright(const QImage& image, qint32 orientation)
{
    switch (orientation) {
        case 2:
            return image.mirrored(true, false);
        case 3:
            return image.mirrored(true, true);
        case 4:
            return image.mirrored(false, true);
        case 5:
            return image.mirrored(true, false).transformed(QTransform().rotate(270));
        case 6:
            return image.transformed(QTransform().rotate(90));
        case 7:
            return image.mirrored(true, false).transformed(QTransform().rotate(90));
        case 8:
            return image.transformed(QTransform().rotate(270));
        default:
            return image;
    }
}

qint32 readOrientation(const QString& path, const PreviewTool& tool)
{
    return parseOrientation(tool.read(orientationOptions(), path).printed);
}

bool looksLikeJpeg(const QByteArray& data)
{
    return data.startsWith("\xFF\xD8");
}

}  // namespace

std::optional<QImage> PreviewImage::extractPreviewImageSync(const QString& from, const PreviewTool& tool)
{
    if (!tool.exists()) {
        diagnostic(QStringLiteral("🖼️ ExifTool niet gevonden voor preview"));
        return std::nullopt;
    }
    QStringList tags = {QStringLiteral("-PreviewImage"), QStringLiteral("-ThumbnailImage")};
    if (isRawName(from))
        tags.append(QStringLiteral("-JpgFromRaw"));
    for (const QString& tag : tags) {
        const QByteArray data = tool.read({QStringLiteral("-b"), tag}, from).printed;
        if (!looksLikeJpeg(data))
            continue;
        if (std::optional<QImage> image = orientedImage(data, readOrientation(from, tool)))
            return image;
    }
    diagnostic(QStringLiteral("🖼️ Geen geldige preview voor ") + lastPathComponent(from));
    return std::nullopt;
}

std::optional<QImage> PreviewImage::ownPicture(const QString& path, const PreviewTool& tool,
                                               const std::stop_token& stop)
{
    if (!isPhotoName(path) || isRawName(path))
        return std::nullopt;
    // A TIFF is decoded at its full size first; one at a time keeps the memory bounded.
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    if (stop.stop_requested())
        return std::nullopt;
    QImageReader::setAllocationLimit(decodedMegabytesAtMost);
    const std::unique_ptr<QIODevice> file = openForReading(path);
    std::optional<QImage> image = file ? decode(*file) : std::nullopt;
    if (!image)
        return std::nullopt;
    return upright(*image, readOrientation(path, tool));
}

std::optional<QImage> PreviewImage::orientedImage(const QByteArray& from, qint32 exifOrientation)
{
    QBuffer buffer;
    buffer.setData(from);
    buffer.open(QIODevice::ReadOnly);
    const std::optional<QImage> image = decode(buffer);
    if (!image)
        return std::nullopt;
    return upright(*image, exifOrientation);
}

QStringList orientationOptions()
{
    return {QStringLiteral("-Orientation#"), QStringLiteral("-s3")};
}

qint32 parseOrientation(const QByteArray& answer)
{
    bool isNumber = false;
    const int orientation = answer.trimmed().toInt(&isNumber, 10);
    return isNumber ? orientation : 1;
}

}  // namespace morvak
