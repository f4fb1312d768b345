#include "qr/CodeRegions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace morvak {

namespace {

constexpr float faintest = 1;          // grey levels squared; sensor noise of a clean photo
constexpr float leastContrast = 0.1F;  // of the energy inside

/// Edge of a cell in pixels: about two hundred cells on the longer side of any photo.
int cellOf(const GrayImage& image)
{
    constexpr int ordinaryPhoto = 2600;
    return std::max(image.width, image.height) > ordinaryPhoto ? 16 : 8;
}

/// The structure tensor of the grey gradient, summed over cells and then over everything above and to the
/// left, so that any window of cells costs four look-ups.
class EdgeEnergy {
public:
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

/// The energy around a window: the mean of the three calmest sides, for on one side stands the card's text. A
/// side that lies outside the picture counts as `inside`: nobody knows of calm paper there.
float around(const EdgeEnergy& energy, int x, int y, int side, float inside)
{
    const int width = std::max(1, side / 6);
    std::array<float, 4> sides{
        y >= width ? energy.mean(x, y - width, side, width) : inside,
        y + side + width <= energy.rows() ? energy.mean(x, y + side, side, width) : inside,
        x >= width ? energy.mean(x - width, y, width, side) : inside,
        x + side + width <= energy.columns() ? energy.mean(x + side, y, width, side) : inside,
    };
    std::sort(sides.begin(), sides.end());
    return (sides[0] + sides[1] + sides[2]) / 3;
}

/// Windows of `side` cells with more energy inside than around. Large ones win over their own parts: a finder
/// pattern alone is busier than the code it belongs to.
void addWindows(std::vector<CodeRegion>& found, const EdgeEnergy& energy, int side)
{
    const int step = std::max(1, side / 5);
    for (int y = 0; y + side <= energy.rows(); y += step)
        for (int x = 0; x + side <= energy.columns(); x += step) {
            const float inside = energy.weakerDirection(x, y, side, side);
            if (inside < faintest)
                continue;
            const float above = inside - around(energy, x, y, side, inside);
            if (above > inside * leastContrast)
                found.push_back({QRect(x, y, side, side), above * float(side), above / inside});
        }
}

bool coverEachOther(const QRect& a, const QRect& b)
{
    const QRect both = a & b;
    const auto area = [](const QRect& r) { return r.width() * r.height(); };
    return !both.isEmpty() && area(both) * 2 > std::min(area(a), area(b));
}

/// Takes the best window that covers none of those taken before, until there are `atMost`.
std::vector<CodeRegion> bestOf(std::vector<CodeRegion> windows, int atMost)
{
    const auto worse = [](const CodeRegion& a, const CodeRegion& b) { return a.score < b.score; };
    std::make_heap(windows.begin(), windows.end(), worse);
    std::vector<CodeRegion> best;
    while (!windows.empty() && int(best.size()) < atMost) {
        const CodeRegion next = windows.front();
        std::pop_heap(windows.begin(), windows.end(), worse);
        windows.pop_back();
        if (std::none_of(best.begin(), best.end(),
                         [&](const CodeRegion& b) { return coverEachOther(b.box, next.box); }))
            best.push_back(next);
    }
    return best;
}

}  // namespace

std::vector<CodeRegion> findCodeRegions(const GrayImage& image, int atMost)
{
    const int cell = cellOf(image);
    const EdgeEnergy energy(image, cell);
    std::vector<CodeRegion> windows;
    for (double side = 4; int(side) <= std::min(energy.columns(), energy.rows()); side *= 1.25)
        addWindows(windows, energy, int(side));
    std::vector<CodeRegion> best = bestOf(std::move(windows), atMost);
    for (CodeRegion& region : best)
        region.box = QRect(region.box.topLeft() * cell, region.box.size() * cell);
    return best;
}

}  // namespace morvak
