#include "catalog/CatalogCsv.h"
#include "text/Lines.h"
#include "text/NameOrder.h"

#include <QSet>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace morvak;

namespace {

bool sameContent(const Product& a, const Product& b)
{
    return a.name == b.name && a.colors == b.colors && a.brand == b.brand;
}

bool isPiece(const QString& text, QChar separator)
{
    return !text.isEmpty() && trimmed(text) == text && !text.contains(separator) &&
           std::none_of(text.begin(), text.end(), isLineBreak);
}

void checkNames(const QList<Product>& products)
{
    QSet<QString> names;
    for (const Product& product : products) {
        const bool newName = !names.contains(caseFolded(product.name));
        names.insert(caseFolded(product.name));
        if (!newName || !isPiece(product.name, u';'))
            std::abort();
        for (const QString& color : product.colors) {
            if (!isPiece(color, u','))
                std::abort();
        }
    }
}

}  // namespace

/// Whatever is read has names of its own, is known when it is read again and, unless a field had to be
/// quoted, comes back from its own text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString brand = QStringLiteral("Velora");
    const std::optional<QList<Product>> products = readCatalogCsv(text, brand, {});
    if (!products)
        return 0;
    checkNames(*products);
    if (!readCatalogCsv(text, brand, *products)->isEmpty())
        std::abort();
    const QString written = writeCatalogCsv(*products);
    if (written.contains(u'"'))
        return 0;
    const std::optional<QList<Product>> again = readCatalogCsv(written, {}, {});
    if (!std::equal(products->begin(), products->end(), again->begin(), again->end(), sameContent))
        std::abort();
    return 0;
}
