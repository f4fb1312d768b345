#pragma once

#include <QList>
#include <QStringView>

#include <optional>

namespace morvak {

/// The pieces that line-based text is cut into. All are pure and return views into their argument. Any
/// thread.

/// LF, VT, FF, CR, NEL, LINE SEPARATOR and PARAGRAPH SEPARATOR. Each ends a line by itself, so that CR LF
/// gives an empty line in between.
[[nodiscard]] bool isLineBreak(QChar c);

/// TAB and the Unicode category Zs, the no-break spaces among them; never a line break.
[[nodiscard]] bool isHorizontalSpace(QChar c);

/// `text` without horizontal white space at both ends.
[[nodiscard]] QStringView trimmed(QStringView text);

/// All pieces between line breaks, empty ones included: always one more than there are line breaks.
[[nodiscard]] QList<QStringView> cutAtLineBreaks(QStringView text);

struct SplitText {
    QStringView first;                  ///< never empty
    std::optional<QStringView> second;  ///< never empty; none when nothing follows the separator
};

/// Cuts `text` at the first `separator` that has something else before it. Separators at the very start are
/// skipped, further ones belong to the second part. None when `text` holds separators only.
[[nodiscard]] std::optional<SplitText> splitOnce(QStringView text, QChar separator);

}  // namespace morvak
