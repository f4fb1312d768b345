#include "qr/ImagePyramid.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace morvak {

namespace {

/// Where the four source pixels that make one target pixel begin, and their weights.
struct Tap {
    int first = 0;
    std::array<float, 4> weight{};
};

std::vector<Tap> catmullRomTaps(int targetLength, double scale)
{
    std::vector<Tap> taps(static_cast<std::size_t>(targetLength));
    for (std::size_t i = 0; i < taps.size(); ++i) {
        const double position = (double(i) + 0.5) / scale - 0.5;
        const double base = std::floor(position);
        const auto t = float(position - base);
        taps[i].first = int(base) - 1;
        taps[i].weight = {((-0.5F * t + 1) * t - 0.5F) * t, (1.5F * t - 2.5F) * t * t + 1,
                          ((-1.5F * t + 2) * t + 0.5F) * t, (0.5F * t - 0.5F) * t * t};
    }
    return taps;
}

int scaledLength(int length, double scale)
{
    return std::max(1, int(std::lround(length * scale)));
}

/// Each pixel the mean of two by two; an odd last row or column is dropped.
GrayImage halved(const GrayImage& image)
{
    GrayImage half(image.width / 2, image.height / 2);
    for (int y = 0; y < half.height; ++y) {
        const std::uint8_t* above = image.row(2 * y);
        const std::uint8_t* below = image.row(2 * y + 1);
        std::uint8_t* to = half.row(y);
        for (int x = 0; x < half.width; ++x)
            to[x] =
                std::uint8_t((above[2 * x] + above[2 * x + 1] + below[2 * x] + below[2 * x + 1] + 2) >> 2);
    }
    return half;
}

GrayImage resampled(const GrayImage& image, const QRect& region, double scale)
{
    const std::vector<Tap> columns = catmullRomTaps(scaledLength(region.width(), scale), scale);
    const std::vector<Tap> rows = catmullRomTaps(scaledLength(region.height(), scale), scale);
    constexpr int reach = 2;  // pixels that taps want beyond the edge: the edge is repeated there
    std::vector<float> line(static_cast<std::size_t>(region.width() + 2 * reach));
    float* const inside = line.data() + reach;
    GrayImage result(int(columns.size()), int(rows.size()));
    for (int y = 0; y < result.height; ++y) {
        const Tap& tap = rows[std::size_t(y)];
        std::array<const std::uint8_t*, 4> from{};
        for (int k = 0; k < 4; ++k)
            from[std::size_t(k)] =
                image.row(region.y() + std::clamp(tap.first + k, 0, region.height() - 1)) + region.x();
        for (int x = 0; x < region.width(); ++x)
            inside[x] = tap.weight[0] * from[0][x] + tap.weight[1] * from[1][x] + tap.weight[2] * from[2][x] +
                        tap.weight[3] * from[3][x];
        std::fill_n(line.begin(), reach, inside[0]);
        std::fill_n(line.end() - reach, reach, inside[region.width() - 1]);
        std::uint8_t* to = result.row(y);
        for (const Tap& across : columns) {
            const float* p = inside + across.first;
            const float sum = across.weight[0] * p[0] + across.weight[1] * p[1] + across.weight[2] * p[2] +
                              across.weight[3] * p[3];
            *to++ = std::uint8_t(std::clamp(sum + 0.5F, 0.0F, 255.0F));
        }
    }
    return result;
}

}  // namespace

ImagePyramid::ImagePyramid(GrayImage photo)
{
    constexpr int smallest = 64;
    m_levels.push_back(std::move(photo));
    while (std::min(m_levels.back().width, m_levels.back().height) >= 2 * smallest)
        m_levels.push_back(halved(m_levels.back()));
}

GrayImage ImagePyramid::cutOut(QRect region, double scale) const
{
    std::size_t level = 0;
    while (scale <= 0.5 && level + 1 < m_levels.size()) {  // four taps see only their neighbours
        region = QRect(region.x() / 2, region.y() / 2, region.width() / 2, region.height() / 2);
        scale *= 2;
        ++level;
    }
    return resampled(m_levels[level], region, scale);
}

const GrayImage& ImagePyramid::atMost(int pixels) const
{
    const auto fits = [pixels](const GrayImage& level) { return level.width * level.height <= pixels; };
    const auto level = std::find_if(m_levels.begin(), m_levels.end(), fits);
    return level == m_levels.end() ? m_levels.back() : *level;
}

}  // namespace morvak
