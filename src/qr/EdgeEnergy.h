#pragma once

#include "qr/GrayImage.h"

#include <array>
#include <vector>

namespace morvak {

/// The structure tensor of the grey gradient, summed over cells and then over everything above and to the
/// left, so that any window of cells costs four look-ups.
class EdgeEnergy {
public:
    /// Of `image`, in square cells of `cell` pixels.
    EdgeEnergy(const GrayImage& image, int cell);

    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] int rows() const { return m_rows; }
    /// Mean energy a pixel of the window across its weaker direction: high only where edges run both ways.
    [[nodiscard]] float weakerDirection(int x, int y, int width, int height) const;
    /// Mean energy a pixel of the window, mean of both directions. The window may reach over the picture.
    [[nodiscard]] float mean(int x, int y, int width, int height) const;

private:
    using Sums = std::array<double, 3>;  // xx, yy, xy

    [[nodiscard]] Sums meanTensor(int x, int y, int width, int height) const;
    [[nodiscard]] const Sums& sum(int x, int y) const { return m_sums[std::size_t(y) * (m_columns + 1) + x]; }

    int m_cell;
    int m_columns;
    int m_rows;
    std::vector<Sums> m_sums;
};

}  // namespace morvak
