#pragma once

#include "qr/GrayImage.h"

namespace morvak {

/// Finder patterns of QR codes: black, white, black as 1:1:3:1:1, across and down.
struct FinderCount {
    double plain = 0;
    double tiny = 0;  ///< with modules of about a pixel, as sensor noise shows them too
};

/// About how many finder patterns are in a picture split at 128. A rough count that costs little and tells a
/// photo from a cloth printed with such squares.
[[nodiscard]] FinderCount roughFinderCount(const GrayImage& blackAndWhite);

}  // namespace morvak
