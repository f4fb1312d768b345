#pragma once

#include "model/SetData.h"

#include <QColor>

namespace morvak::samples {

/// What a set looks like when it is worn: kinds of garment and their colours.
struct Outfit {
    enum class Top { Shirt, Knit, Coat, Dress };
    enum class Bottom { Trousers, Skirt };

    Top top = Top::Shirt;
    Bottom bottom = Bottom::Trousers;
    QColor topColour;
    QColor bottomColour;
    QColor accentColour;  // bag and shoes
};

/// The colour of a shop's Dutch or English colour name; an unknown name gets a calm colour of its own.
[[nodiscard]] QColor clothColour(const QString& name);

/// Reads the outfit from the names and colours of a set's items; what they leave open is made to go with
/// them.
[[nodiscard]] Outfit outfitOf(const SetData& set);

}  // namespace morvak::samples
