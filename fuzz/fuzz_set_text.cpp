#include "model/SetData.h"
#include "text/Lines.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace morvak;

/// A field comes from one line, without white space around it.
bool isField(const QString& text)
{
    return trimmed(text).size() == text.size() && std::none_of(text.begin(), text.end(), isLineBreak);
}

bool hasFieldsOnly(const SetData& set)
{
    const QStringList texts = {set.setNumber, set.brand, set.model, set.location, set.email};
    return std::all_of(texts.begin(), texts.end(), isField) &&
           std::all_of(set.items.begin(), set.items.end(), [](const SetItem& item) {
               return isField(item.name) && isField(item.color) && !item.name.contains(u'/');
           });
}

}  // namespace

/// A card that is read and printed again is the same card. Only an item without a name is not: its colour is
/// read as the name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    std::optional<SetData> set = SetData::parse(text);
    if (!set)
        return 0;
    if (set->headline().isEmpty() || !hasFieldsOnly(*set))
        std::abort();
    set->items.removeIf([](const SetItem& item) { return item.name.isEmpty(); });
    const QString card = set->toQRText();
    const std::optional<SetData> again = SetData::parse(card);
    if (!again || again->toQRText() != card || again->keywords() != set->keywords() ||
        again->description() != set->description())
        std::abort();
    return 0;
}
