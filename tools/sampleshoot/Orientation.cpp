#include "sampleshoot/Orientation.h"

#include <QTransform>

namespace morvak::samples {

QImage storedFor(const QImage& upright, int orientation)
{
    const auto rotated = [&upright](double degrees) {
        return upright.transformed(QTransform().rotate(degrees));
    };
    switch (orientation) {
        case 2:
            return upright.mirrored(true, false);
        case 3:
            return rotated(180);
        case 4:
            return upright.mirrored(false, true);
        case 5:
            return rotated(90).mirrored(true, false);
        case 6:
            return rotated(-90);
        case 7:
            return rotated(-90).mirrored(true, false);
        case 8:
            return rotated(90);
        default:
            return upright;
    }
}

}  // namespace morvak::samples
