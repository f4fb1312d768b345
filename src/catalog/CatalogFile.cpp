#include "catalog/CatalogFile.h"

#include "model/SetJson.h"
#include "text/JsonText.h"
#include "text/JsonWriter.h"

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

constexpr auto readTexts = [](const QJsonValue& value, JsonFault& fault) -> std::optional<QStringList> {
    return readJsonList(value, readJsonText, fault);
};

void writeTexts(JsonWriter& json, const QStringList& texts)
{
    json.list(texts, [&json](const QString& text) { json.text(text); });
}

void writeProduct(JsonWriter& json, const Product& product)
{
    json.beginObject();
    writeId(json.key("id"_L1), product.id);
    json.key("name"_L1).text(product.name);
    writeTexts(json.key("colors"_L1), product.colors);
    json.key("brand"_L1).text(product.brand);
    json.endObject();
}

/// Older versions kept the brand under `client`.
QString readBrand(JsonFields& fields)
{
    const QString brand = fields.optional("brand"_L1, readJsonText).value_or(QString());
    return brand.isEmpty() ? fields.optional("client"_L1, readJsonText).value_or(QString()) : brand;
}

std::optional<Product> readProduct(const QJsonValue& value, JsonFault& fault)
{
    JsonFields fields(value, fault);
    Product product{.id = fields.uuid("id"_L1),
                    .name = fields.text("name"_L1),
                    .colors = fields.required("colors"_L1, readTexts),
                    .brand = readBrand(fields)};
    return fields.intact() ? std::optional(std::move(product)) : std::nullopt;
}

}  // namespace

QByteArray encodeCatalog(const CatalogData& catalog)
{
    JsonWriter json;
    json.beginObject();
    json.key("products"_L1).list(catalog.products, [&](const Product& p) { writeProduct(json, p); });
    writeTexts(json.key("clients"_L1), catalog.clients);
    writeTexts(json.key("brands"_L1), catalog.brands);
    json.endObject();
    return json.take();
}

std::optional<CatalogContent> decodeCatalog(const QByteArray& bytes, JsonFault& fault)
{
    const std::optional<QJsonValue> top = parseJson(bytes, fault);
    if (!top)
        return std::nullopt;
    if (top->isArray())
        return readJsonList(*top, readProduct, fault);
    JsonFields fields(*top, fault);
    CatalogData catalog{.products = fields.required("products"_L1, listOf(readProduct)),
                        .clients = fields.required("clients"_L1, readTexts),
                        .brands = fields.optional("brands"_L1, readTexts).value_or(QStringList())};
    return fields.intact() ? std::optional<CatalogContent>(std::move(catalog)) : std::nullopt;
}

}  // namespace morvak
