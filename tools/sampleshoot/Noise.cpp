#include "sampleshoot/Noise.h"

#include <QColor>

#include <algorithm>
#include <cstring>
#include <random>

namespace morvak::samples {

QByteArray noiseBytes(qsizetype count, quint32 seed)
{
    std::mt19937_64 random(seed);
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype at = 0; at < count; at += 8) {
        const quint64 word = random();
        std::memcpy(bytes.data() + at, &word, static_cast<size_t>(std::min<qsizetype>(8, count - at)));
    }
    return bytes;
}

void addGrain(QImage& image, int strength, quint32 seed)
{
    image.convertTo(QImage::Format_RGB32);
    std::mt19937 random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto word = random();
            // The sum of four bytes is close enough to a bell curve; its deviation is about 148.
            const int sum =
                static_cast<int>((word & 255) + (word >> 8 & 255) + (word >> 16 & 255) + (word >> 24));
            const int grain = (sum - 510) * strength / 148;
            line[x] =
                qRgb(std::clamp(qRed(line[x]) + grain, 0, 255), std::clamp(qGreen(line[x]) + grain, 0, 255),
                     std::clamp(qBlue(line[x]) + grain, 0, 255));
        }
    }
}

QImage softened(const QImage& image, double radius)
{
    const double shrink = 1.0 / (1.0 + radius);
    const QSize small = (QSizeF(image.size()) * shrink).toSize().expandedTo(QSize(1, 1));
    return image.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace morvak::samples
