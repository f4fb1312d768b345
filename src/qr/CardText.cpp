#include "qr/CardText.h"

#include "text/Lines.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace morvak {

namespace {

/// A line stays one line: line breaks and other control characters become spaces.
QString onOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar c) { return isLineBreak(c) || c.category() == QChar::Other_Control; }, u' ');
    return text;
}

QString modelAndLocation(const SetData& set)
{
    QStringList parts{set.model, set.location};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString itemList(const SetData& set)
{
    QStringList items;
    for (const SetItem& item : set.items)
        items.append(item.color.isEmpty() ? item.name : item.name + QStringLiteral(" (") + item.color + u')');
    return items.join(QStringLiteral(", "));
}

}  // namespace

QString clippedToCharacters(const QString& text, int most)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype kept = 0;
    for (int count = 1; count <= most; ++count) {
        const qsizetype end = finder.toNextBoundary();
        if (end < 0 || end == text.size())
            return text;
        if (count < most)
            kept = end;
    }
    return text.first(kept) + u'…';
}

QList<CardLine> cardLines(const SetData& set, BulkQRDensity density)
{
    const int most = measuresOf(density).mostCharacters;
    QList<CardLine> lines;
    const auto add = [&](const QString& text, bool headline) {
        if (!text.isEmpty())
            lines.append({.text = clippedToCharacters(onOneLine(text), most), .headline = headline});
    };
    add(set.headline(), true);
    add(modelAndLocation(set), false);
    add(itemList(set), false);
    return lines;
}

}  // namespace morvak
