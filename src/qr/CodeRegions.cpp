#include "qr/CodeRegions.h"

#include "qr/EdgeEnergy.h"

#include <algorithm>
#include <array>

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
                found.push_back({QRect(x, y, side, side), above * float(side)});
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
