#include "sampleshoot/CameraIfd.h"
#include "sampleshoot/ExifTags.h"
#include "sampleshoot/Noise.h"
#include "sampleshoot/Orientation.h"
#include "sampleshoot/PhotoEncoders.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>

namespace morvak::samples {

namespace {

constexpr uchar app0 = 0xe0;
constexpr uchar app1 = 0xe1;
constexpr uchar app15 = 0xef;
constexpr qsizetype markerBytes = 4;        // FF, marker, 16-bit length that counts itself
constexpr qsizetype segmentBytes = 65'537;  // the longest segment with its marker

QByteArray segment(uchar marker, const QByteArray& content)
{
    QByteArray bytes;
    bytes.append('\xff').append(static_cast<char>(marker));
    const quint16 length = qToBigEndian(static_cast<quint16>(content.size() + 2));
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    return bytes + content;
}

QByteArray thumbnailJpeg(const QImage& stored)
{
    const QImage small = stored.scaled(160, 120, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return bareJpeg(small, 80);
}

QByteArray exifSegment(const PhotoOptions& options, const QImage& stored)
{
    Ifd main = cameraIfd("Morvak", "Sample Studio J", options);
    main.addShorts(tag::yCbCrPositioning, {1});
    Ifd exif = exifIfd(options);
    exif.addBytes(tag::componentsConfiguration, Ifd::Type::Undefined, QByteArray("\1\2\3\0", 4));
    exif.addLongs(tag::pixelXDimension, {static_cast<quint32>(stored.width())});
    exif.addLongs(tag::pixelYDimension, {static_cast<quint32>(stored.height())});
    main.addIfds(tag::exifIfd, {exif});
    std::vector<Ifd> chain{main};
    if (options.thumbnail) {
        Ifd thumbnail;
        thumbnail.addShorts(tag::compression, {6});
        addResolution(thumbnail);
        thumbnail.addData(tag::jpegOffset, tag::jpegLength, thumbnailJpeg(stored));
        chain.push_back(thumbnail);
    }
    return segment(app1, QByteArray("Exif\0\0", 6) + encodeTiff(chain));
}

/// Application segments of noise, `count` bytes in all (none below the size of a marker).
QByteArray padding(qsizetype count, quint32 seed)
{
    QByteArray bytes;
    bytes.reserve(count);
    while (count >= markerBytes) {
        qsizetype take = std::min(count, segmentBytes);
        if (const qsizetype rest = count - take; rest > 0 && rest < markerBytes)
            take -= markerBytes;
        bytes += segment(app15, noiseBytes(take - markerBytes, ++seed));
        count -= take;
    }
    return bytes;
}

}  // namespace

QByteArray bareJpeg(const QImage& picture, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPG", quality);
    // A JFIF segment would stand where Exif must stand.
    if (bytes.size() > 6 && static_cast<uchar>(bytes.at(3)) == app0)
        bytes.remove(2, 2 + qFromBigEndian<quint16>(bytes.constData() + 4));
    return bytes;
}

QByteArray jpegPhoto(const PhotoOptions& options)
{
    const QImage stored = storedFor(options.upright, options.orientation);
    const QByteArray picture = bareJpeg(stored, 90);
    QByteArray photo = picture.first(2) + exifSegment(options, stored);
    const qsizetype missing = options.size - photo.size() - picture.size() + 2;
    photo += padding(missing > 0 ? std::max(missing, markerBytes) : 0, options.seed);
    return photo.append(QByteArrayView(picture).sliced(2));
}

}  // namespace morvak::samples
