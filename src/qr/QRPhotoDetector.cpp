#include "qr/QRPhotoDetector.h"

#include "qr/CodeRegions.h"
#include "qr/ImagePyramid.h"
#include "qr/LocalContrast.h"
#include "qr/SymbolReader.h"
#include "qr/Turnstile.h"

#include <algorithm>
#include <array>
#include <span>

namespace morvak {

namespace {

constexpr int largestFirstLook = 2'900'000;  // pixels

/// One way to make a cut-out readable. Lengths are in pixels of the cut-out.
struct Attempt {
    int side;           ///< of the region, which lies in the middle of a cut-out twice as large
    int sharpenRadius;  ///< against defocus
    int surroundings;   ///< radius of the mean that parts black from white
    int regions;        ///< how many, the best first
    bool whiteOnBlack;  ///< whether cards printed that way are looked for as well
};

/// From what reads most to what reads least. Small cut-outs hide noise and weave.
constexpr std::array attempts{
    Attempt{.side = 213, .sharpenRadius = 3, .surroundings = 40, .regions = 5, .whiteOnBlack = true},
    Attempt{.side = 150, .sharpenRadius = 2, .surroundings = 28, .regions = 2, .whiteOnBlack = false},
    Attempt{.side = 333, .sharpenRadius = 5, .surroundings = 35, .regions = 1, .whiteOnBlack = false},
};

std::optional<QString> readUnlessBusy(const GrayImage& blackAndWhite)
{
    return isTooBusy(blackAndWhite) ? std::nullopt : readSymbol(blackAndWhite);
}

std::optional<QString> firstLook(const ImagePyramid& photo)
{
    constexpr int surroundings = 20;
    const GrayImage split = splitAtLocalMean(photo.atMost(largestFirstLook), surroundings);
    if (!isTooBusy(split))
        return readSymbol(split);
    // Grain looks like tiny finder patterns; at half the size it is gone.
    return readUnlessBusy(splitAtLocalMean(photo.atMost(split.width * split.height / 4), surroundings));
}

std::optional<QString> readRegion(const ImagePyramid& photo, const QRect& box, const Attempt& attempt)
{
    constexpr float amount = 2;
    const int margin = box.width() / 2;
    const QRect part = box.adjusted(-margin, -margin, margin, margin) & photo.full().rect();
    const GrayImage enlarged = photo.cutOut(part, double(attempt.side) / box.width());
    const GrayImage split =
        splitAtLocalMean(sharpened(enlarged, attempt.sharpenRadius, amount), attempt.surroundings);
    auto text = readUnlessBusy(split);
    if (!text && attempt.whiteOnBlack)
        text = readUnlessBusy(inverted(split));
    return text;
}

std::optional<QString> readRegions(const ImagePyramid& photo, const std::stop_token& stop)
{
    const std::vector<CodeRegion> regions = findCodeRegions(photo.full(), attempts.front().regions);
    for (const Attempt& attempt : attempts)
        for (const CodeRegion& region :
             std::span(regions).first(std::min(regions.size(), std::size_t(attempt.regions)))) {
            if (stop.stop_requested())
                return std::nullopt;
            if (auto text = readRegion(photo, region.box, attempt))
                return text;
        }
    return std::nullopt;
}

}  // namespace

std::optional<QString> QRPhotoDetector::detectQRText(const QImage& in, const std::stop_token& stop)
{
    if (in.isNull() || stop.stop_requested())
        return std::nullopt;
    const ImagePyramid photo(grayFrom(in));
    if (stop.stop_requested())
        return std::nullopt;
    if (auto text = firstLook(photo))
        return text;
    static Turnstile turnstile;
    const auto turn = turnstile.enter(stop);
    return turn ? readRegions(photo, stop) : std::nullopt;
}

}  // namespace morvak
