#include "model/SetData.h"

#include "text/Lines.h"

namespace morvak {

namespace {

void readLine(SetData& set, QStringView line)
{
    const std::optional<SplitText> parts = splitOnce(trimmed(line), u':');
    if (!parts || !parts->second)
        return;
    const QString key = trimmed(parts->first).toString().toUpper();
    const QStringView value = trimmed(*parts->second);
    if (key == u"SET") {
        set.setNumber = value.toString();
    } else if (key == u"BRAND") {
        set.brand = value.toString();
    } else if (key == u"MODEL") {
        set.model = value.toString();
    } else if (key == u"LOCATION") {
        set.location = value.toString();
    } else if (key == u"EMAIL") {
        set.email = value.toString();
    } else if (key == u"ITEM") {
        if (const std::optional<SetItem> item = SetItem::parse(value))
            set.items.append(*item);
    }
}

QString numberLabel(const SetData& set)
{
    return QStringLiteral("Set ") + set.setNumber;
}

}  // namespace

std::optional<SetItem> SetItem::parse(QStringView text)
{
    const std::optional<SplitText> parts = splitOnce(trimmed(text), u'/');
    if (!parts)
        return std::nullopt;
    SetItem item;
    item.name = trimmed(parts->first).toString();
    item.color = trimmed(parts->second.value_or(QStringView())).toString();
    return item;
}

QString SetItem::joined(QChar separator) const
{
    return color.isEmpty() ? name : name + separator + color;
}

std::optional<SetData> SetData::parse(const QString& text)
{
    SetData set;
    for (const QStringView line : cutAtLineBreaks(text))
        readLine(set, line);
    if (set.setNumber.isEmpty() && set.brand.isEmpty())
        return std::nullopt;
    return set;
}

QString SetData::toQRText() const
{
    QStringList lines;
    const auto addLine = [&lines](const QString& key, const QString& value) {
        if (!value.isEmpty())
            lines.append(key + value);
    };
    addLine(QStringLiteral("SET:"), setNumber);
    addLine(QStringLiteral("BRAND:"), brand);
    for (const SetItem& item : items)
        lines.append(QStringLiteral("ITEM:") + item.joined(u'/'));
    addLine(QStringLiteral("MODEL:"), model);
    addLine(QStringLiteral("LOCATION:"), location);
    addLine(QStringLiteral("EMAIL:"), email);
    return lines.join(u'\n');
}

QString SetData::headline() const
{
    QStringList parts;
    if (!setNumber.isEmpty())
        parts.append(numberLabel(*this));
    if (!brand.isEmpty())
        parts.append(brand);
    return parts.join(QStringLiteral(" — "));
}

QString SetData::description() const
{
    QStringList parts;
    for (const SetItem& item : items)
        parts.append(item.joined(u' '));
    return parts.join(QStringLiteral(", "));
}

QStringList SetData::keywords() const
{
    QStringList words;
    if (!setNumber.isEmpty())
        words.append(numberLabel(*this));
    if (!brand.isEmpty())
        words.append(brand);
    for (const SetItem& item : items) {
        words.append(item.name);
        if (!item.color.isEmpty())
            words.append(item.color);
    }
    return words;
}

}  // namespace morvak
