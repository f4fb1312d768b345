#pragma once

#include "qr/GrayImage.h"

#include <QRect>

#include <vector>

namespace morvak {

/// A square part of a picture that has edges in all directions and calm paper around it.
struct CodeRegion {
    QRect box;       ///< in pixels of the picture, cut at its edges
    float score;     ///< edge energy that stands out from the surroundings, grey levels squared
    float contrast;  ///< the same as a share of the energy inside, 0 to 1
};

/// The parts of `image` that look most like a code, best first, at most `atMost`. Two that cover each other
/// mostly are one.
[[nodiscard]] std::vector<CodeRegion> findCodeRegions(const GrayImage& image, int atMost);

}  // namespace morvak
