#include "qr/QRGenerator.h"

#include "qr/QRSymbol.h"

#include <cmath>

namespace morvak {

namespace {

constexpr double largestSize = 16384;

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
    const auto symbol = encodeSymbol(from);
    if (!symbol)
        return std::nullopt;
    return drawn(*symbol, int(std::lround(size)));
}

}  // namespace morvak
