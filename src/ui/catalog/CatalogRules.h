#pragma once

#include "catalog/Product.h"
#include "ui/base/blocks/ChoiceBox.h"

#include <optional>

namespace morvak {

/// What the sheets of the catalog decide. Pure.

/// The brand whose products are listed, empty for the general ones; none for all products.
using BrandFilter = std::optional<QString>;

[[nodiscard]] QList<Product> listedProducts(const QList<Product>& products, const BrandFilter& filter);

/// The brand of a product that is added while the list is filtered.
[[nodiscard]] inline QString brandOf(const BrandFilter& filter)
{
    return filter.value_or(QString());
}

/// `chosen` stays to be chosen when nothing has that brand any more.
[[nodiscard]] QList<ChoiceBox::Choice> brandChoices(const QStringList& brandNames, const QString& chosen);

/// The brand that a name stands for which was entered as a new one: a listed one in its own spelling, or the
/// name itself.
[[nodiscard]] QString enteredBrand(const QStringList& brandNames, const QString& name);

[[nodiscard]] QString textOfColors(const QStringList& colors);
/// The pieces between commas, trimmed, without empty ones.
[[nodiscard]] QStringList colorsOfText(const QString& text);

}  // namespace morvak
