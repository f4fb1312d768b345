#include "text/ImportText.h"

namespace morvak {

namespace {

/// A surrogate is half of a character of four bytes.
qint64 utf8Size(QStringView text)
{
    qint64 bytes = 0;
    for (const QChar c : text)
        bytes += c.unicode() < 0x80 ? 1 : c.unicode() < 0x800 || c.isSurrogate() ? 2 : 3;
    return bytes;
}

}  // namespace

std::optional<QStringView> importableText(QStringView text)
{
    if (text.size() > mostImportedBytes || utf8Size(text) > mostImportedBytes)
        return std::nullopt;
    return text.startsWith(QChar::ByteOrderMark) ? text.sliced(1) : text;
}

}  // namespace morvak
