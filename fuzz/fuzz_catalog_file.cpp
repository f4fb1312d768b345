#include "catalog/CatalogFile.h"

#include <cstdint>
#include <cstdlib>

using namespace morvak;

/// What can be read is written so that it reads back as the same; what cannot is told why.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    JsonFault fault;
    const std::optional<CatalogContent> content = decodeCatalog(bytes, fault);
    if (content.has_value() == fault.isSet())
        std::abort();
    if (!content)
        return 0;
    const auto* products = std::get_if<QList<Product>>(&*content);
    const QByteArray written =
        encodeCatalog(products ? CatalogData{*products, {}, {}} : std::get<CatalogData>(*content));
    const std::optional<CatalogContent> again = decodeCatalog(written, fault);
    if (!again || encodeCatalog(std::get<CatalogData>(*again)) != written)
        std::abort();
    return 0;
}
