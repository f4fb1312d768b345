#include "ui/sets/SetSearch.h"

#include "text/NameOrder.h"

#include <QLocale>

namespace morvak {

namespace {

/// Stands between the fields of a key. No text holds this noncharacter, so nothing is found across two
/// fields.
constexpr QChar fieldEnd(0xFFFF);

/// Capitals first, by the locale: they are what "ß" and "SS", or in Turkish "i" and "İ", have in common. The
/// simple folding after it makes one of the capitals that a locale leaves apart.
QString comparable(const QString& text)
{
    return caseFolded(QLocale().toUpper(text.normalized(QString::NormalizationForm_C)));
}

QString withoutBlanks(const QString& text)
{
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && isBlank(text[first]))
        ++first;
    while (end > first && isBlank(text[end - 1]))
        --end;
    return text.sliced(first, end - first);
}

}  // namespace

SetSearch::SetSearch(const QString& entered) : m_wanted(comparable(withoutBlanks(entered))) {}

QString SetSearch::keyOf(const SetData& set)
{
    QString fields = set.brand + fieldEnd + set.model + fieldEnd + set.setNumber;
    for (const SetItem& item : set.items)
        fields += fieldEnd + item.name;
    return comparable(fields);
}

}  // namespace morvak
