#include "qr/BulkQRDensity.h"

namespace morvak {

const CardMeasures& measuresOf(BulkQRDensity density)
{
    static constexpr CardMeasures large{.rawValue = QLatin1StringView("large"),
                                        .perRow = 2,
                                        .headlineSize = 15,
                                        .textSize = 10,
                                        .qrSide = 127,
                                        .mostCharacters = 40};
    static constexpr CardMeasures compact{.rawValue = QLatin1StringView("compact"),
                                          .perRow = 3,
                                          .headlineSize = 11,
                                          .textSize = 8,
                                          .qrSide = 85,
                                          .mostCharacters = 28};
    return density == BulkQRDensity::large ? large : compact;
}

QString labelOf(BulkQRDensity density)
{
    return density == BulkQRDensity::large ? QStringLiteral("Groot — 4 per A4")
                                           : QStringLiteral("Compact — 9 per A4");
}

}  // namespace morvak
