#pragma once

#include <QImage>
#include <QRect>

#include <cstdint>
#include <vector>

namespace morvak {

/// A picture in eight-bit grey, rows packed without padding. 0 is black.
struct GrayImage {
    GrayImage() = default;
    GrayImage(int columns, int rows) : width(columns), height(rows), pixels(std::size_t(columns) * rows) {}

    [[nodiscard]] const std::uint8_t* row(int y) const { return pixels.data() + std::size_t(y) * width; }
    [[nodiscard]] std::uint8_t* row(int y) { return pixels.data() + std::size_t(y) * width; }
    [[nodiscard]] QRect rect() const { return {0, 0, width, height}; }

    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

/// The luma (ITU-R BT.601) of any image; what is transparent counts as lying on white paper.
[[nodiscard]] GrayImage grayFrom(const QImage& image);

}  // namespace morvak
