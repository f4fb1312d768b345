#pragma once

#include <QStringView>

#include <iterator>
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

/// The pieces of a text between line breaks, empty ones included: always one more than there are line
/// breaks. A range that cuts while it is walked, so that a text of any length costs no memory.
class LinePieces {
public:
    class Iterator {
    public:
        explicit Iterator(QStringView rest) : m_rest(rest) { cut(); }

        [[nodiscard]] QStringView operator*() const { return m_piece; }
        Iterator& operator++();
        [[nodiscard]] bool operator!=(std::default_sentinel_t) const { return !m_done; }

    private:
        void cut();

        QStringView m_rest;  // the piece and all behind it
        QStringView m_piece;
        bool m_done = false;
    };

    explicit LinePieces(QStringView text) : m_text(text) {}

    [[nodiscard]] Iterator begin() const { return Iterator(m_text); }
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

private:
    QStringView m_text;
};

[[nodiscard]] inline LinePieces cutAtLineBreaks(QStringView text)
{
    return LinePieces(text);
}

struct SplitText {
    QStringView first;                  ///< never empty
    std::optional<QStringView> second;  ///< never empty; none when nothing follows the separator
};

/// Cuts `text` at the first `separator` that has something else before it. Separators at the very start are
/// skipped, further ones belong to the second part. None when `text` holds separators only.
[[nodiscard]] std::optional<SplitText> splitOnce(QStringView text, QChar separator);

}  // namespace morvak
