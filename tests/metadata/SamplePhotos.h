#pragma once

#include "sampleshoot/PhotoEncoders.h"

namespace morvak::test {

/// A photo of one colour; `side` in pixels.
inline samples::PhotoOptions plainPhoto(int side)
{
    samples::PhotoOptions options;
    options.upright = QImage(side, side, QImage::Format_RGB32);
    options.upright.fill(Qt::darkCyan);
    return options;
}

inline QByteArray jpegPhoto(int side = 64)
{
    return samples::jpegPhoto(plainPhoto(side));
}

inline QByteArray tiffPhoto()
{
    return samples::tiffPhoto(plainPhoto(16));
}

}  // namespace morvak::test
