#include "sampleshoot/CameraIfd.h"
#include "sampleshoot/ExifTags.h"
#include "sampleshoot/Noise.h"
#include "sampleshoot/Orientation.h"
#include "sampleshoot/PhotoEncoders.h"

#include <algorithm>
#include <cmath>

namespace morvak::samples {

namespace {

constexpr int previewLongSide = 1620;
constexpr quint16 jpegCompression = 6;
constexpr quint16 dngJpegCompression = 7;
constexpr quint16 colourFilterArray = 32803;
constexpr quint16 yCbCr = 6;
constexpr quint16 linear = 1;
constexpr qsizetype directoriesBytes = 2'000;  // about what stands around preview and strip

struct Preview {
    QSize size;
    QImage thumbnail;
    QByteArray jpeg;
};

Preview previewOf(const PhotoOptions& options)
{
    QImage stored = storedFor(options.upright, options.orientation);
    if (std::max(stored.width(), stored.height()) > previewLongSide)
        stored =
            stored.scaled(previewLongSide, previewLongSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return {stored.size(), stored.scaled(160, 160, Qt::KeepAspectRatio, Qt::SmoothTransformation),
            bareJpeg(stored, 85)};
}

/// The directory of the RAW data: a Bayer pattern of 16-bit samples, all noise, as long as the file still
/// needs.
Ifd rawIfd(const PhotoOptions& options, const Preview& preview, quint16 compression)
{
    const qsizetype wanted =
        std::max<qsizetype>(options.size - preview.jpeg.size() - directoriesBytes, 200'000);
    const int width = std::max(2, static_cast<int>(std::sqrt(static_cast<double>(wanted) * 0.75)) & ~1);
    const int height = static_cast<int>(wanted / (2 * width)) + 1;
    Ifd ifd;
    ifd.addLongs(tag::newSubfileType, {0});
    addPictureTags(ifd, {width, height}, compression, colourFilterArray);
    ifd.addShorts(tag::bitsPerSample, {16});
    ifd.addShorts(tag::samplesPerPixel, {1});
    ifd.addShorts(tag::cfaRepeatPatternDim, {2, 2});
    ifd.addBytes(tag::cfaPattern, Ifd::Type::Byte, QByteArray("\0\1\1\2", 4));  // RGGB
    ifd.addData(tag::stripOffsets, tag::stripByteCounts,
                noiseBytes(qsizetype{2} * width * height, options.seed));
    return ifd;
}

/// Nikon's maker note is a TIFF structure of its own behind a short header; its preview directory holds the
/// JPEG.
QByteArray nikonMakerNote(const Preview& preview)
{
    Ifd previewIfd;
    previewIfd.addShorts(tag::compression, {jpegCompression});
    previewIfd.addData(tag::jpegOffset, tag::jpegLength, preview.jpeg);
    Ifd note;
    note.addBytes(0x0001, Ifd::Type::Undefined, QByteArrayLiteral("0211"));  // MakerNoteVersion
    note.addIfds(0x0011, {previewIfd});
    return QByteArray("Nikon\0\2\x11\0\0", 10) + encodeTiff({note});
}

}  // namespace

QByteArray dngPhoto(const PhotoOptions& options)
{
    const Preview preview = previewOf(options);
    Ifd main = cameraIfd("Morvak", "Sample Studio D", options);
    main.addLongs(tag::newSubfileType, {1});  // a reduced picture: the preview
    addPictureTags(main, preview.size, dngJpegCompression, yCbCr);
    main.addShorts(tag::bitsPerSample, {8, 8, 8});
    main.addShorts(tag::samplesPerPixel, {3});
    main.addData(tag::stripOffsets, tag::stripByteCounts, preview.jpeg);
    main.addBytes(tag::dngVersion, Ifd::Type::Byte, QByteArray("\1\4\0\0", 4));
    main.addBytes(tag::dngBackwardVersion, Ifd::Type::Byte, QByteArray("\1\1\0\0", 4));
    main.addAscii(tag::uniqueCameraModel, "Morvak Sample Studio D");
    main.addRationals(tag::colorMatrix1,
                      {{1, 1}, {0, 1}, {0, 1}, {0, 1}, {1, 1}, {0, 1}, {0, 1}, {0, 1}, {1, 1}},
                      Ifd::Type::SignedRational);
    main.addRationals(tag::asShotNeutral, {{1, 1}, {1, 1}, {1, 1}});
    main.addShorts(tag::calibrationIlluminant1, {21});  // D65
    main.addIfds(tag::exifIfd, {exifIfd(options)});
    main.addIfds(tag::subIfds, {rawIfd(options, preview, linear)});
    return encodeTiff({main});
}

QByteArray nefPhoto(const PhotoOptions& options)
{
    constexpr quint16 nikonCompression = 34713;
    const Preview preview = previewOf(options);
    Ifd exif = exifIfd(options);
    exif.addBytes(tag::makerNote, Ifd::Type::Undefined, nikonMakerNote(preview));
    Ifd main = cameraIfd("NIKON CORPORATION", "NIKON Z 6", options);
    main.addLongs(tag::newSubfileType, {1});
    addRgbPicture(main, preview.thumbnail);
    main.addIfds(tag::exifIfd, {exif});
    main.addIfds(tag::subIfds, {rawIfd(options, preview, nikonCompression)});
    return encodeTiff({main});
}

QByteArray arwPhoto(const PhotoOptions& options)
{
    constexpr quint16 sonyCompression = 32767;
    const Preview preview = previewOf(options);
    Ifd main = cameraIfd("SONY", "ILCE-7M3", options);
    main.addLongs(tag::newSubfileType, {1});
    main.addShorts(tag::compression, {jpegCompression});
    main.addData(tag::jpegOffset, tag::jpegLength, preview.jpeg);
    main.addIfds(tag::exifIfd, {exifIfd(options)});
    main.addIfds(tag::subIfds, {rawIfd(options, preview, sonyCompression)});
    return encodeTiff({main});
}

QByteArray cr2Photo(const PhotoOptions& options)
{
    const Preview preview = previewOf(options);
    Ifd main = cameraIfd("Canon", "Canon EOS 5D Mark III", options);
    addPictureTags(main, preview.size, jpegCompression, yCbCr);
    main.addData(tag::stripOffsets, tag::stripByteCounts, preview.jpeg);
    main.addIfds(tag::exifIfd, {exifIfd(options)});
    return encodeTiff({main, rawIfd(options, preview, jpegCompression)}, TiffHeader::Canon);
}

}  // namespace morvak::samples
