#pragma once

#include <QLatin1StringView>
#include <QString>

#include <array>

namespace morvak {

/// How many cards share a page of the card PDF.
enum class BulkQRDensity { large, compact };

/// All densities, in the order in which they are offered.
inline constexpr std::array bulkQRDensities{BulkQRDensity::large, BulkQRDensity::compact};

/// What a density fixes. Sizes and lengths are in points.
struct CardMeasures {
    QLatin1StringView rawValue;  ///< names the density where it is stored or typed
    int perRow;                  ///< as many rows as columns
    double headlineSize;         ///< of the bold headline's font
    double textSize;             ///< of the other lines' font
    double qrSide;
    int mostCharacters;  ///< of a line, as the user perceives them

    [[nodiscard]] constexpr int perPage() const { return perRow * perRow; }
};

[[nodiscard]] const CardMeasures& measuresOf(BulkQRDensity density);

/// "Groot — 4 per A4".
[[nodiscard]] QString labelOf(BulkQRDensity density);

}  // namespace morvak
