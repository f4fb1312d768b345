#pragma once

#include <QByteArray>
#include <QImage>

namespace morvak::samples {

/// `count` bytes that no compression makes smaller; the same for the same seed.
[[nodiscard]] QByteArray noiseBytes(qsizetype count, quint32 seed);

/// Adds the grain of a sensor: each pixel gets up to about three times `strength` levels more or less, the
/// same in all channels. `image` becomes Format_RGB32.
void addGrain(QImage& image, int strength, quint32 seed);

/// A slight defocus: every detail is spread over about `radius` pixels.
[[nodiscard]] QImage softened(const QImage& image, double radius);

}  // namespace morvak::samples
