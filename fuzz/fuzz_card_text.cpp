#include "qr/CardText.h"
#include "text/Lines.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

using namespace morvak;

int characters(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() > 0)
        ++count;
    return count;
}

bool staysOnALine(QChar c)
{
    return !isLineBreak(c) && c.category() != QChar::Other_Control;
}

}  // namespace

/// Whatever UTF-16 a set holds, its card has at most three lines, each of them one line within the limit.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString text(static_cast<qsizetype>(size / sizeof(char16_t)), Qt::Uninitialized);
    std::memcpy(text.data(), data, size / sizeof(char16_t) * sizeof(char16_t));
    SetData set;
    set.brand = text;
    set.model = text.left(text.size() / 2);
    set.items.append({.name = text, .color = text.right(3)});
    for (const BulkQRDensity density : bulkQRDensities) {
        const QList<CardLine> lines = cardLines(set, density);
        if (lines.size() > 3)
            std::abort();
        for (const CardLine& line : lines)
            if (line.text.isEmpty() || characters(line.text) > measuresOf(density).mostCharacters ||
                !std::all_of(line.text.begin(), line.text.end(), staysOnALine))
                std::abort();
    }
    return 0;
}
