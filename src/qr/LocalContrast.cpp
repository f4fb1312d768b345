#include "qr/LocalContrast.h"

#include <algorithm>

namespace morvak {

namespace {

/// Calls `combine(pixel, reference)` for each pixel of two pictures of the same size.
template <typename Combine>
GrayImage combined(const GrayImage& image, const GrayImage& reference, Combine combine)
{
    GrayImage result(image.width, image.height);
    std::transform(image.pixels.begin(), image.pixels.end(), reference.pixels.begin(), result.pixels.begin(),
                   combine);
    return result;
}

std::uint8_t toGray(float value)
{
    return std::uint8_t(std::clamp(value, 0.0F, 255.0F));
}

/// Sums of the rows `y - radius` to `y + radius` for each column, kept up to date from row to row.
class ColumnSums {
public:
    ColumnSums(const GrayImage& image, int radius)
        : m_image(image), m_radius(radius), m_sums(std::size_t(image.width))
    {
        for (int y = 0; y < std::min(radius, image.height); ++y)
            add(y, 1);
    }
    /// Rows are asked for in order, from the first.
    const std::vector<int>& at(int y)
    {
        if (y + m_radius < m_image.height)
            add(y + m_radius, 1);
        if (y - m_radius - 1 >= 0)
            add(y - m_radius - 1, -1);
        return m_sums;
    }

private:
    void add(int y, int sign)
    {
        const std::uint8_t* row = m_image.row(y);
        for (std::size_t x = 0; x < m_sums.size(); ++x)
            m_sums[x] += sign * row[x];
    }

    const GrayImage& m_image;
    int m_radius;
    std::vector<int> m_sums;
};

}  // namespace

GrayImage boxMean(const GrayImage& image, int radius)
{
    GrayImage mean(image.width, image.height);
    ColumnSums columns(image, radius);
    std::vector<int> running(std::size_t(image.width) + 1);
    for (int y = 0; y < image.height; ++y) {
        const std::vector<int>& sums = columns.at(y);
        for (std::size_t x = 0; x < sums.size(); ++x)
            running[x + 1] = running[x] + sums[x];
        const int rows = std::min(y + radius, image.height - 1) - std::max(y - radius, 0) + 1;
        std::uint8_t* to = mean.row(y);
        const float perFullWindow = 1.0F / float(rows * (2 * radius + 1));
        const auto clipped = [&](int x) {
            const int left = std::max(x - radius, 0);
            const int right = std::min(x + radius, image.width - 1) + 1;
            to[x] = std::uint8_t((running[std::size_t(right)] - running[std::size_t(left)]) /
                                 (rows * (right - left)));
        };
        const int firstFull = std::min(radius, image.width);
        const int endFull = std::max(image.width - radius, firstFull);
        for (int x = 0; x < firstFull; ++x)
            clipped(x);
        for (int x = firstFull; x < endFull; ++x)
            to[x] =
                std::uint8_t(float(running[std::size_t(x + radius + 1)] - running[std::size_t(x - radius)]) *
                             perFullWindow);
        for (int x = endFull; x < image.width; ++x)
            clipped(x);
    }
    return mean;
}

GrayImage sharpened(const GrayImage& image, int radius, float amount)
{
    return combined(image, boxMean(boxMean(image, radius), radius), [amount](std::uint8_t p, std::uint8_t m) {
        return toGray(float(p) + amount * float(p - m));
    });
}

GrayImage splitAtLocalMean(const GrayImage& image, int radius)
{
    return combined(image, boxMean(image, radius),
                    [](std::uint8_t p, std::uint8_t m) { return std::uint8_t(p < m ? 0 : 255); });
}

GrayImage inverted(GrayImage image)
{
    for (std::uint8_t& pixel : image.pixels)
        pixel = std::uint8_t(255 - pixel);
    return image;
}

}  // namespace morvak
