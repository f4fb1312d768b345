#include "catalog/ProductCatalog.h"

#include "catalog/CatalogCsv.h"
#include "catalog/CatalogFile.h"
#include "platform/Diagnostics.h"
#include "text/Lines.h"
#include "text/NameOrder.h"

#include <algorithm>

namespace morvak {

namespace {

QString trimmedName(const QString& name)
{
    return trimmed(name).toString();
}

/// False when the name adds nothing to the list.
bool addName(QStringList& list, const QString& name)
{
    const QString added = trimmedName(name);
    if (added.isEmpty() || list.contains(added, Qt::CaseInsensitive))
        return false;
    list = sortedByName(list << added);
    return true;
}

void removeName(QStringList& list, const QString& name)
{
    list.removeIf([name](const QString& entry) { return entry == name; });  // a copy: it may be an entry
}

}  // namespace

ProductCatalog::ProductCatalog(QString savePath, QObject* parent, std::chrono::milliseconds saveRetry)
    : QObject(parent), m_saver(std::move(savePath), saveRetry)
{
    connect(&m_saver, &StoreSaver::saveAsked, this, &ProductCatalog::save);
}

QStringList ProductCatalog::allBrandNames() const
{
    QStringList names = m_data.brands;
    for (const Product& product : m_data.products) {
        if (!product.brand.isEmpty())
            names.append(product.brand);
    }
    names.removeDuplicates();
    return sortedByName(names);
}

QStringList ProductCatalog::allClientNames() const
{
    return sortedByName(m_data.clients);
}

void ProductCatalog::load()
{
    if (m_saver.isBehind())
        return;
    const std::optional<QByteArray> bytes = m_saver.file().read();
    if (!bytes)
        return;
    JsonFault fault;
    std::optional<CatalogContent> content = decodeCatalog(*bytes, fault);
    if (!content) {
        m_saver.file().reject(fault.message());
        return;
    }
    m_saver.file().accept();
    if (auto* products = std::get_if<QList<Product>>(&*content)) {
        m_data.products = std::move(*products);
        Q_EMIT productsChanged();
        return;
    }
    m_data = std::get<CatalogData>(*std::move(content));
    Q_EMIT productsChanged();
    Q_EMIT clientsChanged();
    Q_EMIT brandsChanged();
}

void ProductCatalog::save()
{
    m_saver.write(encodeCatalog(m_data));
}

void ProductCatalog::saveRest()
{
    if (m_saver.isBehind())
        save();
}

void ProductCatalog::sortAndSave()
{
    std::ranges::stable_sort(m_data.products, NameOrder(), &Product::name);
    save();
    Q_EMIT productsChanged();
}

void ProductCatalog::addClient(const QString& name)
{
    if (!addName(m_data.clients, name))
        return;
    save();
    Q_EMIT clientsChanged();
}

void ProductCatalog::addBrand(const QString& name)
{
    if (!addName(m_data.brands, name))
        return;
    save();
    Q_EMIT brandsChanged();
}

void ProductCatalog::addProduct(const QString& name, const QStringList& colors, const QString& brand)
{
    Product product;
    product.name = trimmedName(name);
    if (product.name.isEmpty())
        return;
    product.colors = colors;
    product.brand = brand;
    m_data.products.append(product);
    sortAndSave();
}

void ProductCatalog::updateProduct(QUuid id, const QString& name, const QStringList& colors,
                                   const QString& brand)
{
    const auto found = std::find_if(m_data.products.begin(), m_data.products.end(),
                                    [&id](const Product& product) { return product.id == id; });
    if (found == m_data.products.end())
        return;
    *found = Product{.id = id, .name = trimmedName(name), .colors = colors, .brand = trimmedName(brand)};
    sortAndSave();
}

void ProductCatalog::deleteProduct(QUuid id)
{
    m_data.products.removeIf([&id](const Product& product) { return product.id == id; });
    save();
    Q_EMIT productsChanged();
}

void ProductCatalog::deleteBrand(const QString& name)
{
    removeName(m_data.brands, name);
    save();
    Q_EMIT brandsChanged();
}

void ProductCatalog::deleteClient(const QString& name)
{
    removeName(m_data.clients, name);
    save();
    Q_EMIT clientsChanged();
}

qsizetype ProductCatalog::importCSV(const QString& text, const QString& defaultBrand)
{
    const std::optional<QList<Product>> added = readCatalogCsv(text, defaultBrand, m_data.products);
    if (!added)
        diagnostic(QStringLiteral("⚠️ Producten niet geïmporteerd: de tekst is te groot"));
    else
        m_data.products.append(*added);
    sortAndSave();
    return added ? added->size() : 0;
}

QString ProductCatalog::exportCSV() const
{
    return writeCatalogCsv(m_data.products);
}

}  // namespace morvak
