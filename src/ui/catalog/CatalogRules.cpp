#include "ui/catalog/CatalogRules.h"

#include "text/Lines.h"
#include "text/NameOrder.h"

#include <algorithm>

namespace morvak {

QList<Product> listedProducts(const QList<Product>& products, const BrandFilter& filter)
{
    QList<Product> listed = products;
    if (filter)
        listed.removeIf([&filter](const Product& product) { return product.brand != *filter; });
    return listed;
}

QList<ChoiceBox::Choice> brandChoices(const QStringList& brandNames, const QString& chosen)
{
    QStringList brands = brandNames;
    if (!chosen.isEmpty() && !brands.contains(chosen))
        brands = sortedByName(brands << chosen);
    QList<ChoiceBox::Choice> choices;
    for (const QString& brand : std::as_const(brands))
        choices.append({brand, brand});
    return choices;
}

QString enteredBrand(const QStringList& brandNames, const QString& name)
{
    const auto found = std::ranges::find_if(
        brandNames, [&name](const QString& brand) { return brand.compare(name, Qt::CaseInsensitive) == 0; });
    return brandNames.contains(name) || found == brandNames.cend() ? name : *found;
}

QString textOfColors(const QStringList& colors)
{
    return colors.join(QStringLiteral(", "));
}

QStringList colorsOfText(const QString& text)
{
    QStringList colors;
    for (const QStringView piece : QStringView(text).split(u',')) {
        if (const QStringView color = trimmed(piece); !color.isEmpty())
            colors.append(color.toString());
    }
    return colors;
}

}  // namespace morvak
