#include "qr/GrayImage.h"

#include <QPainter>

#include <algorithm>

namespace morvak {

namespace {

QImage onWhite(const QImage& image)
{
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter painter(&flat);
    painter.drawImage(QRect(QPoint(), image.size()), image);
    return flat;
}

}  // namespace

GrayImage grayFrom(const QImage& image)
{
    GrayImage gray(image.width(), image.height());
    if (image.format() == QImage::Format_Grayscale8) {
        for (int y = 0; y < gray.height; ++y)
            std::copy_n(image.constScanLine(y), gray.width, gray.row(y));
        return gray;
    }
    const QImage colours = image.format() == QImage::Format_RGB32 ? image
                           : image.hasAlphaChannel()              ? onWhite(image)
                                                     : image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < gray.height; ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(colours.constScanLine(y));
        std::uint8_t* to = gray.row(y);
        for (int x = 0; x < gray.width; ++x) {
            const QRgb c = from[x];
            to[x] =
                std::uint8_t((((c >> 16) & 255) * 77 + ((c >> 8) & 255) * 150 + (c & 255) * 29 + 128) >> 8);
        }
    }
    return gray;
}

}  // namespace morvak
