#pragma once

#include <QFont>

namespace morvak {

enum class TextStyle {
    title,    ///< 20 bold
    section,  ///< 15 semibold
    body,     ///< 13
    caption,  ///< 11
};

/// Height of the style's font in device-independent pixels.
[[nodiscard]] int pixelSize(TextStyle style);

/// The style's font, made from the desktop's interface font.
[[nodiscard]] QFont styledFont(const QFont& interfaceFont, TextStyle style);

/// A font of the same size and weight in which all digits are equally wide, so that counters and times do not
/// jump: the font itself where it is so, else a family that has such digits.
[[nodiscard]] QFont tabularFont(const QFont& font);

}  // namespace morvak
