#pragma once

#include "catalog/Product.h"

#include <optional>

namespace morvak {

/// The products as semicolon-separated text for spreadsheets: name, colours (separated by commas) and brand,
/// under the header `Naam;Kleuren;Merk`. Pure, any thread.
///
/// Writing quotes the fields that need it, reading knows no quotes: a name that holds a semicolon or a
/// double quote does not come back as it was.

[[nodiscard]] QString writeCatalogCsv(const QList<Product>& products);

/// The products of a text that have a name which neither a product in `known` nor an earlier line has,
/// letter case aside. A line of one or two fields gets `defaultBrand`. Lines that look like a header, or
/// without a name, are skipped. None when the text is too long or holds too many products and colours.
[[nodiscard]] std::optional<QList<Product>> readCatalogCsv(const QString& text, const QString& defaultBrand,
                                                           const QList<Product>& known);

}  // namespace morvak
