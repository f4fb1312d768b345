#pragma once

#include "model/SetData.h"
#include "qr/BulkQRDensity.h"

#include <QList>
#include <QString>

namespace morvak {

/// One line under the code of a printed card.
struct CardLine {
    QString text;  ///< never empty, no control characters
    bool headline = false;
};

/// `text` when it has at most `most` characters as the user perceives them (extended grapheme clusters of
/// UAX #29); otherwise its first `most - 1` and an ellipsis. `most` is at least 1.
[[nodiscard]] QString clippedToCharacters(const QString& text, int most);

/// The lines of a set's card, at most three: headline; model and location; items. Lines without text are left
/// out, long ones clipped. Pure, any thread.
[[nodiscard]] QList<CardLine> cardLines(const SetData& set, BulkQRDensity density);

}  // namespace morvak
