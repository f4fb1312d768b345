#include "store/SetsCsv.h"
#include "text/Lines.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

using namespace morvak;

/// The fuzzer's bytes as UTF-8 or, when the first one is odd, as UTF-16 units of any value.
QString textOf(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return {};
    const QByteArrayView rest(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    if (data[0] % 2 == 0)
        return QString::fromUtf8(rest);
    QString units(rest.size() / 2, QChar());
    std::memcpy(units.data(), rest.data(), static_cast<std::size_t>(units.size()) * 2);
    return units;
}

void checkRow(QStringView line)
{
    qsizetype separators = 0;
    bool quoted = false;
    for (const QChar c : line) {
        quoted ^= c == u'"';
        separators += c == u';' && !quoted ? 1 : 0;
    }
    const QStringList fields = parseCSVRow(line);
    const auto isClean = [](const QString& field) {
        return !field.contains(u'"') && trimmed(field).size() == field.size();
    };
    if (fields.size() != separators + 1 || !std::all_of(fields.begin(), fields.end(), isClean))
        std::abort();
}

/// The list column cuts at commas, which an item of a column of its own may hold.
bool survivesTheList(const SetData& set)
{
    return std::none_of(set.items.begin(), set.items.end(),
                        [](const SetItem& item) { return item.joined(u'/').contains(u','); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = textOf(data, size);
    for (const QStringView line : cutAtLineBreaks(text))
        checkRow(line);
    QString fault;
    std::optional<QList<SetData>> sets = decodeSetsCsv(text, fault);
    if (sets.has_value() == !fault.isEmpty())
        std::abort();
    if (!sets)
        return 0;
    sets->removeIf([](const SetData& set) { return !survivesTheList(set); });
    if (sets->isEmpty())
        return 0;
    const QString written = encodeSetsCsv(*sets);
    const std::optional<QList<SetData>> again = decodeSetsCsv(written, fault);
    if (!again || again->size() != sets->size() || encodeSetsCsv(*again) != written)
        std::abort();
    return 0;
}
