#include "qr/EdgeEnergy.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace morvak {

namespace {

/// Adds the squares and the product of row `y`'s gradients to those of the rows above.
void addGradients(const GrayImage& image, int y, std::array<std::vector<int>, 3>& sums)
{
    const std::uint8_t* here = image.row(y) + 1;
    const std::uint8_t* above = image.row(y - 1) + 1;
    const std::uint8_t* below = image.row(y + 1) + 1;
    int* xx = sums[0].data();
    int* yy = sums[1].data();
    int* xy = sums[2].data();
    const auto width = std::ptrdiff_t(sums[0].size());
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        const int gx = here[x + 1] - here[x - 1];
        const int gy = below[x] - above[x];
        xx[x] += gx * gx;
        yy[x] += gy * gy;
        xy[x] += gx * gy;
    }
}

}  // namespace

EdgeEnergy::EdgeEnergy(const GrayImage& image, int cell)
    : m_cell(cell),
      m_columns(std::max(0, image.width - 2) / cell),
      m_rows(std::max(0, image.height - 2) / cell),
      m_sums(std::size_t(m_columns + 1) * (m_rows + 1))
{
    const std::size_t width = std::size_t(m_columns) * cell;
    std::array<std::vector<int>, 3> columnSums{std::vector<int>(width), std::vector<int>(width),
                                               std::vector<int>(width)};
    for (int row = 0; row < m_rows; ++row) {
        for (auto& sums : columnSums)
            std::fill(sums.begin(), sums.end(), 0);
        for (int y = row * cell + 1; y <= row * cell + cell; ++y)
            addGradients(image, y, columnSums);
        Sums left{};
        for (int column = 0; column < m_columns; ++column) {
            const std::size_t at = std::size_t(row + 1) * (m_columns + 1) + column + 1;
            for (std::size_t k = 0; k < 3; ++k) {
                const auto first = columnSums[k].begin() + std::ptrdiff_t(column) * cell;
                left[k] += std::accumulate(first, first + cell, 0);
                m_sums[at][k] = m_sums[at - std::size_t(m_columns) - 1][k] + left[k];
            }
        }
    }
}

EdgeEnergy::Sums EdgeEnergy::meanTensor(int x, int y, int width, int height) const
{
    const int left = std::clamp(x, 0, m_columns);
    const int right = std::clamp(x + width, 0, m_columns);
    const int top = std::clamp(y, 0, m_rows);
    const int bottom = std::clamp(y + height, 0, m_rows);
    const int cells = (right - left) * (bottom - top);
    Sums result{};
    if (cells > 0)
        for (std::size_t k = 0; k < 3; ++k)
            result[k] =
                (sum(right, bottom)[k] - sum(left, bottom)[k] - sum(right, top)[k] + sum(left, top)[k]) /
                (double(cells) * m_cell * m_cell);
    return result;
}

float EdgeEnergy::weakerDirection(int x, int y, int width, int height) const
{
    const auto [xx, yy, xy] = meanTensor(x, y, width, height);
    return float((xx + yy) / 2 - std::sqrt((xx - yy) * (xx - yy) / 4 + xy * xy));
}

float EdgeEnergy::mean(int x, int y, int width, int height) const
{
    const auto [xx, yy, xy] = meanTensor(x, y, width, height);
    return float((xx + yy) / 2);
}

}  // namespace morvak
