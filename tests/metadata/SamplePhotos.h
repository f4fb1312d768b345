#pragma once

#include "model/SetData.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"

namespace morvak::test {

/// `side` in pixels.
inline QByteArray jpegPhoto(int side = 64)
{
    return samples::jpegPhoto(samples::plainPhoto(QSize(side, side)));
}

inline QByteArray tiffPhoto()
{
    return samples::tiffPhoto(samples::plainPhoto(QSize(16, 16)));
}

/// A set with every field that is written, and items with and without a colour.
inline SetData fullSet()
{
    SetData set;
    set.setNumber = QStringLiteral("12");
    set.brand = QStringLiteral("Noord");
    set.items = {{.name = QStringLiteral("Overshirt"), .color = QStringLiteral("navy")},
                 {.name = QStringLiteral("Chino"), .color = {}}};
    set.model = QStringLiteral("Anna");
    set.location = QStringLiteral("Studio 2");
    return set;
}

}  // namespace morvak::test
