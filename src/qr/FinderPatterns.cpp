#include "qr/FinderPatterns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace morvak {

namespace {

constexpr int rowStep = 3;              // the smallest core is three rows high
constexpr double smallestModule = 0.9;  // pixels; smaller patterns are none to the decoding library
constexpr double grainModule = 1.2;     // below that sensor noise is full of patterns

bool isDark(std::uint8_t level)
{
    return level < 128;
}

bool near(int length, double expected)
{
    return std::abs(length - expected) <= expected * 0.5 + 0.5;
}

/// The last five stretches of a row, ending with a dark one.
using Stretches = std::array<int, 5>;

/// The length of a module when the stretches have a finder pattern's proportions, else 0.
double moduleOf(const Stretches& s)
{
    const double module = (s[0] + s[1] + s[2] + s[3] + s[4]) / 7.0;
    const bool fits = near(s[0], module) && near(s[1], module) && near(s[2], 3 * module) &&
                      near(s[3], module) && near(s[4], module);
    return fits && module >= smallestModule ? module : 0;
}

/// Whether a ray from the middle of the pattern leaves the core, crosses a gap and a bar in the right
/// proportions, which are the same in every direction and however the pattern is turned.
bool leavesThroughRing(const GrayImage& image, int x, int y, int stepX, int stepY, int limit)
{
    std::array<int, 4> ends{};  // of core, gap and bar
    std::size_t passed = 0;
    bool wasDark = true;
    for (int k = 1; passed < 3; ++k) {
        x += stepX;
        y += stepY;
        if (k > limit || !image.rect().contains(x, y))
            return false;
        const bool dark = isDark(image.row(y)[x]);
        if (dark != wasDark)
            ends[++passed] = k;
        wasDark = dark;
    }
    const double module = ends[3] / 3.5;
    return near(ends[1], 1.5 * module) && near(ends[2] - ends[1], module) && near(ends[3] - ends[2], module);
}

bool isConcentric(const GrayImage& image, int x, int y, double module)
{
    constexpr std::array<std::pair<int, int>, 6> directions{
        {{0, 1}, {0, -1}, {1, 1}, {-1, -1}, {1, -1}, {-1, 1}}};
    const int limit = int(6 * module) + 2;
    return isDark(image.row(y)[x]) &&
           std::all_of(directions.begin(), directions.end(), [&](const auto& step) {
               return leavesThroughRing(image, x, y, step.first, step.second, limit);
           });
}

/// Adds what one row shows: a pattern is crossed by as many rows as its core is high.
void countInRow(const GrayImage& image, int y, FinderCount& count)
{
    const std::uint8_t* row = image.row(y);
    Stretches last{};
    int start = 0;
    for (int x = 1; x < image.width; ++x) {
        if (isDark(row[x]) == isDark(row[x - 1]))
            continue;
        last = {last[1], last[2], last[3], last[4], x - start};
        start = x;
        if (isDark(row[x]))  // a light stretch has ended
            continue;
        const double module = moduleOf(last);
        const int middle = x - last[4] - last[3] - last[2] / 2;
        if (module > 0 && isConcentric(image, middle, y, module))
            (module < grainModule ? count.tiny : count.plain) += rowStep / (3 * module);
    }
}

}  // namespace

FinderCount roughFinderCount(const GrayImage& blackAndWhite)
{
    FinderCount count;
    for (int y = 0; y < blackAndWhite.height; y += rowStep)
        countInRow(blackAndWhite, y, count);
    return count;
}

}  // namespace morvak
