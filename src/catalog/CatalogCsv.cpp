#include "catalog/CatalogCsv.h"

#include "text/Csv.h"
#include "text/ImportText.h"
#include "text/Lines.h"
#include "text/NameOrder.h"

#include <QSet>

namespace morvak {

namespace {

/// The trimmed fields of one line.
struct Row {
    QStringView name;
    QStringView colors;
    std::optional<QStringView> brand;  ///< with all further semicolons
};

Row cutRow(QStringView line)
{
    Row row;
    const qsizetype nameEnd = line.indexOf(u';');
    row.name = trimmed(line.first(nameEnd < 0 ? line.size() : nameEnd));
    if (nameEnd < 0)
        return row;
    const QStringView rest = line.sliced(nameEnd + 1);
    const qsizetype colorsEnd = rest.indexOf(u';');
    row.colors = trimmed(rest.first(colorsEnd < 0 ? rest.size() : colorsEnd));
    if (colorsEnd >= 0)
        row.brand = trimmed(rest.sliced(colorsEnd + 1));
    return row;
}

bool looksLikeHeader(QStringView name)
{
    const QString lower = name.toString().toLower();
    return lower.contains(u"naam") || lower.contains(u"name");
}

/// At most `most` of them.
QStringList cutColors(QStringView field, qsizetype most)
{
    QStringList colors;
    for (const QStringView piece : field.tokenize(u',', Qt::SkipEmptyParts)) {
        if (colors.size() >= most)
            break;
        if (const QStringView color = trimmed(piece); !color.isEmpty())
            colors.append(color.toString());
    }
    return colors;
}

QSet<QString> foldedNames(const QList<Product>& products)
{
    QSet<QString> names;
    for (const Product& product : products)
        names.insert(caseFolded(product.name));
    return names;
}

}  // namespace

QString writeCatalogCsv(const QList<Product>& products)
{
    QString text = QStringLiteral("Naam;Kleuren;Merk");
    for (const Product& product : products) {
        text += u'\n' + csvField(product.name) + u';' + csvField(product.colors.join(QStringLiteral(", "))) +
                u';' + csvField(product.brand);
    }
    return text;
}

std::optional<QList<Product>> readCatalogCsv(const QString& text, const QString& defaultBrand,
                                             const QList<Product>& known)
{
    const std::optional<QStringView> content = importableText(text);
    if (!content)
        return std::nullopt;
    QSet<QString> names = foldedNames(known);
    QList<Product> products;
    qsizetype room = mostImportedRecords;
    for (const QStringView line : cutAtLineBreaks(*content)) {
        const Row row = cutRow(line);
        if (row.name.isEmpty() || looksLikeHeader(row.name))
            continue;
        QString folded = caseFolded(row.name);
        if (names.contains(folded))
            continue;
        Product product;
        product.name = row.name.toString();
        product.colors = cutColors(row.colors, room);
        product.brand = row.brand ? row.brand->toString() : defaultBrand;
        room -= 1 + product.colors.size();
        if (room < 0)
            return std::nullopt;
        names.insert(std::move(folded));
        products.append(std::move(product));
    }
    return products;
}

}  // namespace morvak
