#pragma once

#include "catalog/Product.h"
#include "text/JsonFields.h"

#include <QByteArray>

#include <optional>
#include <variant>

namespace morvak {

/// The content of catalog.json: one compact JSON object of products, clients and brands. Pure, any thread.

/// What a file holds: in its oldest form the products only.
using CatalogContent = std::variant<CatalogData, QList<Product>>;

[[nodiscard]] QByteArray encodeCatalog(const CatalogData& catalog);

/// Everything in the file or, when anything in it is not as it should be, none and the fault. Files of older
/// versions are read as well: without brands, with a product's brand under `client`, or with a list of
/// products and nothing else.
[[nodiscard]] std::optional<CatalogContent> decodeCatalog(const QByteArray& bytes, JsonFault& fault);

}  // namespace morvak
