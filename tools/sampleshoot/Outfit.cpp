#include "sampleshoot/Outfit.h"

#include <QHash>

#include <initializer_list>

namespace morvak::samples {

namespace {

bool namesOneOf(const QString& item, std::initializer_list<QLatin1StringView> words)
{
    return std::ranges::any_of(
        words, [&item](QLatin1StringView word) { return item.contains(word, Qt::CaseInsensitive); });
}

void wear(Outfit& outfit, const SetItem& item)
{
    using namespace Qt::Literals::StringLiterals;
    const QColor colour = clothColour(item.color);
    const auto top = [&](Outfit::Top kind) {
        outfit.top = kind;
        outfit.topColour = colour;
    };
    const auto bottom = [&](Outfit::Bottom kind) {
        outfit.bottom = kind;
        outfit.bottomColour = colour;
    };
    if (namesOneOf(item.name, {"jurk"_L1, "dress"_L1}))
        top(Outfit::Top::Dress);
    else if (namesOneOf(item.name, {"jas"_L1, "mantel"_L1, "coat"_L1, "blazer"_L1}))
        top(Outfit::Top::Coat);
    else if (namesOneOf(item.name, {"trui"_L1, "vest"_L1, "knit"_L1, "sweater"_L1}))
        top(Outfit::Top::Knit);
    else if (namesOneOf(item.name, {"shirt"_L1, "blouse"_L1, "hemd"_L1}))
        top(Outfit::Top::Shirt);
    else if (namesOneOf(item.name, {"rok"_L1, "skirt"_L1}))
        bottom(Outfit::Bottom::Skirt);
    else if (namesOneOf(item.name, {"broek"_L1, "chino"_L1, "jeans"_L1, "pantalon"_L1, "trousers"_L1}))
        bottom(Outfit::Bottom::Trousers);
    else
        outfit.accentColour = colour;
}

}  // namespace

QColor clothColour(const QString& name)
{
    static const QHash<QString, QRgb> known{
        {QStringLiteral("marine"), 0x2b3a55},     {QStringLiteral("navy"), 0x2b3a55},
        {QStringLiteral("zand"), 0xcdb594},       {QStringLiteral("sand"), 0xcdb594},
        {QStringLiteral("camel"), 0xb98a58},      {QStringLiteral("cognac"), 0x96552c},
        {QStringLiteral("terracotta"), 0xb9583a}, {QStringLiteral("rood"), 0xa9353a},
        {QStringLiteral("red"), 0xa9353a},        {QStringLiteral("olijf"), 0x6b6f45},
        {QStringLiteral("groen"), 0x4c7058},      {QStringLiteral("green"), 0x4c7058},
        {QStringLiteral("blauw"), 0x4b6c93},      {QStringLiteral("blue"), 0x4b6c93},
        {QStringLiteral("ecru"), 0xe6dcc8},       {QStringLiteral("wit"), 0xeeebe4},
        {QStringLiteral("white"), 0xeeebe4},      {QStringLiteral("zwart"), 0x2c2b2d},
        {QStringLiteral("black"), 0x2c2b2d},      {QStringLiteral("grijs"), 0x8b8c8e},
        {QStringLiteral("grey"), 0x8b8c8e},       {QStringLiteral("roze"), 0xd3a29e},
        {QStringLiteral("pink"), 0xd3a29e},       {QStringLiteral("oker"), 0xc4923e},
    };
    const auto found = known.constFind(name.trimmed().toLower());
    if (found != known.cend())
        return QColor(*found);
    return QColor::fromHsv(static_cast<int>(qHash(name, 0) % 360), 90, 150);
}

Outfit outfitOf(const SetData& set)
{
    Outfit outfit;
    for (const SetItem& item : set.items)
        wear(outfit, item);
    if (!outfit.topColour.isValid())
        outfit.topColour = clothColour(QStringLiteral("ecru"));
    if (!outfit.bottomColour.isValid())
        outfit.bottomColour = outfit.topColour.darker(170);
    if (!outfit.accentColour.isValid())
        outfit.accentColour = clothColour(QStringLiteral("cognac"));
    return outfit;
}

}  // namespace morvak::samples
