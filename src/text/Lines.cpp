#include "text/Lines.h"

#include <algorithm>

namespace morvak {

bool isLineBreak(QChar c)
{
    const char16_t code = c.unicode();
    return (code >= 0x000A && code <= 0x000D) || code == 0x0085 || code == 0x2028 || code == 0x2029;
}

bool isHorizontalSpace(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && isHorizontalSpace(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isHorizontalSpace(text.back()))
        text.chop(1);
    return text;
}

void LinePieces::Iterator::cut()
{
    m_piece = QStringView(m_rest.begin(), std::find_if(m_rest.begin(), m_rest.end(), isLineBreak));
}

LinePieces::Iterator& LinePieces::Iterator::operator++()
{
    m_done = m_piece.size() == m_rest.size();
    if (!m_done) {
        m_rest = m_rest.sliced(m_piece.size() + 1);
        cut();
    }
    return *this;
}

std::optional<SplitText> splitOnce(QStringView text, QChar separator)
{
    while (text.startsWith(separator))
        text = text.sliced(1);
    if (text.isEmpty())
        return std::nullopt;
    const qsizetype at = text.indexOf(separator);
    if (at < 0)
        return SplitText{text, std::nullopt};
    const QStringView rest = text.sliced(at + 1);
    return SplitText{text.first(at), rest.isEmpty() ? std::nullopt : std::optional(rest)};
}

}  // namespace morvak
