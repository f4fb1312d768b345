#include "qr/QRGenerator.h"

#include <QStringEncoder>

#include <qrcodegen/qrcodegen.hpp>

#include <algorithm>
#include <cmath>
#include <exception>

namespace morvak {

namespace {

constexpr int quietZone = 4;  // modules on each side
constexpr double largestSize = 16384;

std::optional<std::vector<std::uint8_t>> utf8Bytes(const QString& text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    if (encoder.hasError())
        return std::nullopt;
    return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

std::optional<qrcodegen::QrCode> encoded(const std::vector<std::uint8_t>& bytes)
{
    using qrcodegen::QrCode;
    constexpr int automaticMask = -1;
    constexpr bool raiseLevelWhereFree = false;
    try {
        return QrCode::encodeSegments({qrcodegen::QrSegment::makeBytes(bytes)}, QrCode::Ecc::MEDIUM,
                                      QrCode::MIN_VERSION, QrCode::MAX_VERSION, automaticMask,
                                      raiseLevelWhereFree);
    } catch (const std::exception&) {  // too long for the largest symbol
        return std::nullopt;
    }
}

QImage drawn(const qrcodegen::QrCode& symbol, int size)
{
    const int modules = symbol.getSize() + 2 * quietZone;
    QImage image(size, size, QImage::Format_Grayscale8);
    for (int y = 0; y < size; ++y) {
        const int row = int(qint64(y) * modules / size) - quietZone;
        uchar* line = image.scanLine(y);
        for (int x = 0; x < size; ++x)
            line[x] = symbol.getModule(int(qint64(x) * modules / size) - quietZone, row) ? 0 : 255;
    }
    return image;
}

}  // namespace

std::optional<QImage> QRGenerator::generate(const QString& from, double size)
{
    if (!(size >= 1 && size <= largestSize))  // NaN is none of both
        return std::nullopt;
    const auto bytes = utf8Bytes(from);
    if (!bytes)
        return std::nullopt;
    const auto symbol = encoded(*bytes);
    if (!symbol)
        return std::nullopt;
    return drawn(*symbol, int(std::lround(size)));
}

}  // namespace morvak
