#include "sampleshoot/CameraIfd.h"

#include "sampleshoot/ExifTags.h"

namespace morvak::samples {

namespace {

QByteArray exifDate(const QDateTime& taken)
{
    return taken.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss")).toLatin1();
}

}  // namespace

Ifd cameraIfd(QByteArrayView make, QByteArrayView model, const PhotoOptions& options)
{
    Ifd ifd;
    ifd.addAscii(tag::make, make);
    ifd.addAscii(tag::model, model);
    ifd.addShorts(tag::orientation, {static_cast<quint16>(options.orientation)});
    addResolution(ifd);
    ifd.addAscii(tag::dateTime, exifDate(options.taken));
    return ifd;
}

Ifd exifIfd(const PhotoOptions& options)
{
    Ifd ifd;
    ifd.addRationals(tag::exposureTime, {{1, 160}});
    ifd.addRationals(tag::fNumber, {{8, 1}});
    ifd.addShorts(tag::photographicSensitivity, {100});
    ifd.addBytes(tag::exifVersion, Ifd::Type::Undefined, QByteArrayLiteral("0230"));
    ifd.addAscii(tag::dateTimeOriginal, exifDate(options.taken));
    ifd.addAscii(tag::dateTimeDigitized, exifDate(options.taken));
    ifd.addRationals(tag::focalLength, {{85, 1}});
    ifd.addBytes(tag::flashpixVersion, Ifd::Type::Undefined, QByteArrayLiteral("0100"));
    ifd.addShorts(tag::colorSpace, {1});  // sRGB
    return ifd;
}

void addResolution(Ifd& ifd)
{
    ifd.addRationals(tag::xResolution, {{300, 1}});
    ifd.addRationals(tag::yResolution, {{300, 1}});
    ifd.addShorts(tag::resolutionUnit, {2});  // inches
}

void addPictureTags(Ifd& ifd, QSize size, quint16 compression, quint16 photometric)
{
    ifd.addLongs(tag::imageWidth, {static_cast<quint32>(size.width())});
    ifd.addLongs(tag::imageLength, {static_cast<quint32>(size.height())});
    ifd.addShorts(tag::compression, {compression});
    ifd.addShorts(tag::photometric, {photometric});
    ifd.addLongs(tag::rowsPerStrip, {static_cast<quint32>(size.height())});
    ifd.addShorts(tag::planarConfiguration, {1});
}

void addRgbPicture(Ifd& ifd, const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    QByteArray pixels;
    pixels.reserve(rgb.sizeInBytes());
    for (int y = 0; y < rgb.height(); ++y)  // an image's lines are padded, a strip's are not
        pixels.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), qsizetype{3} * rgb.width());
    addPictureTags(ifd, rgb.size(), 1, 2);
    ifd.addShorts(tag::bitsPerSample, {8, 8, 8});
    ifd.addShorts(tag::samplesPerPixel, {3});
    ifd.addData(tag::stripOffsets, tag::stripByteCounts, pixels);
}

}  // namespace morvak::samples
