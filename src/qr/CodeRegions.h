#pragma once

#include "qr/GrayImage.h"

#include <QRect>

#include <vector>

namespace morvak {

/// A square part of a picture that has edges in all directions and calm paper around it.
struct CodeRegion {
    QRect box;    ///< in pixels of the picture, inside it
    float score;  ///< the edge energy that stands out from the surroundings, times the size
};

/// The parts of `image` that look most like a code, best first, at most `atMost`. Two that cover each other
/// mostly are one.
[[nodiscard]] std::vector<CodeRegion> findCodeRegions(const GrayImage& image, int atMost);

}  // namespace morvak
