#include "store/SetsCsv.h"

#include "text/Csv.h"
#include "text/ImportText.h"
#include "text/Lines.h"

#include <QStringTokenizer>

#include <algorithm>
#include <limits>

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

/// Spreadsheets have no more columns.
constexpr qsizetype mostColumns = 16'384;

/// The fields of a line up to so many.
QStringList cutRow(QStringView line, qsizetype mostFields)
{
    QStringList fields;
    QString field;
    bool quoted = false;
    const auto isSpecial = [&quoted](QChar c) { return c == u'"' || (c == u';' && !quoted); };
    for (auto at = line.begin(); fields.size() < mostFields;) {
        const auto end = std::find_if(at, line.end(), isSpecial);
        field += QStringView(at, end);
        if (end != line.end() && *end == u'"') {
            quoted = !quoted;
        } else {
            fields.append(trimmed(field).toString());
            field.truncate(0);
        }
        if (end == line.end())
            break;
        at = end + 1;
    }
    return fields;
}

/// The first field of the lower-case header that has one of these words in it, or -1.
qsizetype columnWith(const QStringList& header, std::initializer_list<QLatin1StringView> words)
{
    const auto found = std::find_if(header.begin(), header.end(), [words](const QString& name) {
        return std::any_of(words.begin(), words.end(), [&name](auto word) { return name.contains(word); });
    });
    return found == header.end() ? -1 : found - header.begin();
}

/// Where a row has what; -1 for what it does not have.
struct Columns {
    explicit Columns(const QStringList& header);

    qsizetype count;
    qsizetype setNumber;
    qsizetype brand;
    qsizetype model;
    qsizetype location;
    qsizetype email;
    qsizetype itemList;            // items between commas
    QList<qsizetype> singleItems;  // ascending
};

Columns::Columns(const QStringList& header)
    : count(header.size()),
      setNumber(columnWith(header, {"set"_L1})),
      brand(columnWith(header, {"merk"_L1, "brand"_L1, "naam"_L1, "name"_L1, "product"_L1})),
      model(columnWith(header, {"model"_L1})),
      location(columnWith(header, {"locatie"_L1, "location"_L1})),
      email(columnWith(header, {"email"_L1, "e-mail"_L1})),
      itemList(columnWith(header, {"item"_L1}))
{
    for (qsizetype i = itemList + 1; itemList >= 0 && i < count; ++i) {
        if (header[i].contains("item"_L1))
            singleItems.append(i);
    }
}

void addItem(QList<SetItem>& items, QStringView text)
{
    const std::optional<SetItem> item = SetItem::parse(text);
    if (item && !item->name.isEmpty())
        items.append(*item);
}

/// The items of a row; those past what may be imported are left out.
QList<SetItem> readItems(const Columns& columns, const QStringList& fields)
{
    QList<SetItem> items;
    const QString list = fields.value(columns.itemList);
    for (const QStringView item : qTokenize(QStringView(list), u',')) {
        if (items.size() > mostImportedRecords)
            break;
        addItem(items, item);
    }
    for (const qsizetype index : columns.singleItems) {
        if (index >= fields.size())
            break;
        addItem(items, fields[index]);
    }
    return items;
}

/// None for a row with neither brand nor items. Only a set draws ids and looks at the clock: a text may hold
/// millions of rows that are none.
std::optional<SetData> readSet(const Columns& columns, QStringView line, qsizetype rowNumber)
{
    const QStringList fields = cutRow(line, columns.count);
    const QString brand = fields.value(columns.brand);
    const QList<SetItem> items = readItems(columns, fields);
    if (brand.isEmpty() && items.isEmpty())
        return std::nullopt;
    SetData set;
    set.setNumber = fields.value(columns.setNumber);
    if (set.setNumber.isEmpty())
        set.setNumber = QString::number(rowNumber);
    set.brand = brand;
    set.items = items;
    set.model = fields.value(columns.model);
    set.location = fields.value(columns.location);
    set.email = fields.value(columns.email);
    return set;
}

std::nullopt_t refused(const QString& reason, QString& fault)
{
    fault = reason;
    return std::nullopt;
}

QString joinedItems(const QList<SetItem>& items)
{
    QStringList texts;
    for (const SetItem& item : items)
        texts.append(item.joined(u'/'));
    return texts.join(u", "_s);
}

QString row(const SetData& set)
{
    const QStringList fields{
        csvField(set.setNumber), csvField(set.brand), csvField(joinedItems(set.items)), csvField(set.model),
        csvField(set.location),  csvField(set.email), QString::number(set.taggedCount)};
    return fields.join(u';');
}

}  // namespace

QStringList parseCSVRow(QStringView line)
{
    return cutRow(line, std::numeric_limits<qsizetype>::max());
}

QString encodeSetsCsv(const QList<SetData>& sets)
{
    QString text = u"Set;Merk;Items;Model;Locatie;Email;Getagd"_s;
    for (const SetData& set : sets)
        text += u'\n' + row(set);
    return text;
}

std::optional<QList<SetData>> decodeSetsCsv(const QString& text, QString& fault)
{
    const std::optional<QStringView> importable = importableText(text);
    if (!importable)
        return refused(u"te groot"_s, fault);
    std::optional<Columns> columns;
    QList<SetData> sets;
    qsizetype rows = 0;
    qsizetype records = 0;
    for (const QStringView line : cutAtLineBreaks(*importable)) {
        if (trimmed(line).isEmpty())
            continue;
        if (!columns) {
            columns.emplace(cutRow(line.toString().toLower(), mostColumns));
            continue;
        }
        std::optional<SetData> set = readSet(*columns, line, ++rows);
        if (!set)
            continue;
        records += 1 + set->items.size();
        if (records > mostImportedRecords)
            return refused(u"te veel sets en items"_s, fault);
        sets.append(*std::move(set));
    }
    if (rows == 0)
        return refused(u"geen kopregel met regels eronder"_s, fault);
    return sets;
}

}  // namespace morvak
