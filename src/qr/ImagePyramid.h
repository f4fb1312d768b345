#pragma once

#include "qr/GrayImage.h"

#include <QRect>

#include <vector>

namespace morvak {

/// A photo in full, half, quarter... size, so that parts of it are soon had at any scale.
class ImagePyramid {
public:
    explicit ImagePyramid(GrayImage photo);

    [[nodiscard]] const GrayImage& full() const { return m_levels.front(); }
    /// The largest level of at most so many pixels, or the smallest one.
    [[nodiscard]] const GrayImage& atMost(int pixels) const;
    /// The part of the photo inside `region`, which is not empty and lies within it, at `scale` times its
    /// size. Enlarges with a cubic kernel (Catmull-Rom), which keeps the edges of modules two pixels wide.
    [[nodiscard]] GrayImage cutOut(QRect region, double scale) const;

private:
    std::vector<GrayImage> m_levels;
};

}  // namespace morvak
