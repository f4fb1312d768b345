#include "SamplePhotos.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

namespace morvak::test {

namespace {

void append16(QByteArray& bytes, quint16 value)
{
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void append32(QByteArray& bytes, quint32 value)
{
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

QByteArray jpegPhoto(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, x * y % 256));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPEG");
    return bytes;
}

QByteArray tiffPhoto()
{
    constexpr quint16 shortType = 3;
    constexpr quint16 longType = 4;
    struct Entry {
        quint16 tag;
        quint16 type;
        quint32 value;
    };
    constexpr quint32 pixelOffset = 8;
    const QList<Entry> entries = {
        {256, longType, 1},            // ImageWidth
        {257, longType, 1},            // ImageLength
        {258, shortType, 8},           // BitsPerSample
        {259, shortType, 1},           // Compression: none
        {262, shortType, 1},           // PhotometricInterpretation: black is zero
        {273, longType, pixelOffset},  // StripOffsets
        {277, shortType, 1},           // SamplesPerPixel
        {278, longType, 1},            // RowsPerStrip
        {279, longType, 1},            // StripByteCounts
    };
    QByteArray bytes("II*\0", 4);
    append32(bytes, 10);
    bytes += QByteArray("\x80\0", 2);
    append16(bytes, static_cast<quint16>(entries.size()));
    for (const Entry& entry : entries) {
        append16(bytes, entry.tag);
        append16(bytes, entry.type);
        append32(bytes, 1);
        append32(bytes, entry.value);
    }
    append32(bytes, 0);
    return bytes;
}

}  // namespace morvak::test
