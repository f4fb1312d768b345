#pragma once

#include "qr/GrayImage.h"

namespace morvak {

/// Each pixel the mean of the square of `2 * radius + 1` pixels around it (smaller at the edges).
[[nodiscard]] GrayImage boxMean(const GrayImage& image, int radius);

/// Unsharp mask: adds `amount` times what blurring twice with a box of `radius` takes away.
[[nodiscard]] GrayImage sharpened(const GrayImage& image, int radius, float amount);

/// Black where a pixel is darker than the mean of its surroundings, white elsewhere.
[[nodiscard]] GrayImage splitAtLocalMean(const GrayImage& image, int radius);

/// White for black.
[[nodiscard]] GrayImage inverted(GrayImage image);

}  // namespace morvak
