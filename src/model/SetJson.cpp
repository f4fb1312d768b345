#include "model/SetJson.h"

#include "text/JsonFields.h"
#include "text/JsonWriter.h"

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

void writeItem(JsonWriter& json, const SetItem& item)
{
    json.beginObject();
    json.key("color"_L1).text(item.color);
    writeId(json.key("id"_L1), item.id);
    json.key("name"_L1).text(item.name);
    json.endObject();
}

std::optional<SetItem> readItem(const QJsonValue& value, JsonFault& fault)
{
    JsonFields fields(value, fault);
    SetItem item{
        .id = fields.uuid("id"_L1), .name = fields.text("name"_L1), .color = fields.text("color"_L1)};
    return fields.intact() ? std::optional(std::move(item)) : std::nullopt;
}

}  // namespace

void writeId(JsonWriter& json, const QUuid& id)
{
    json.plainText(QLatin1StringView(id.toByteArray(QUuid::WithoutBraces).toUpper()));
}

void writeSet(JsonWriter& json, const SetData& set, const DateForm& dates)
{
    json.beginObject();
    json.key("brand"_L1).text(set.brand);
    json.key("email"_L1).text(set.email);
    writeId(json.key("id"_L1), set.id);
    json.key("items"_L1).list(set.items, [&json](const SetItem& item) { writeItem(json, item); });
    json.key("location"_L1).text(set.location);
    json.key("model"_L1).text(set.model);
    json.key("setNumber"_L1).text(set.setNumber);
    json.key("taggedCount"_L1).integer(set.taggedCount);
    dates.write(json.key("timestamp"_L1), set.timestamp);
    json.endObject();
}

std::optional<SetData> readSet(const QJsonValue& value, const DateForm& dates, JsonFault& fault)
{
    JsonFields fields(value, fault);
    SetData set{.id = fields.uuid("id"_L1),
                .setNumber = fields.text("setNumber"_L1),
                .brand = fields.text("brand"_L1),
                .items = fields.required("items"_L1, listOf(readItem)),
                .model = fields.text("model"_L1),
                .location = fields.text("location"_L1),
                .timestamp = fields.required("timestamp"_L1, dates.read),
                .taggedCount = fields.optional("taggedCount"_L1, readJsonInteger).value_or(0),
                .email = fields.optional("email"_L1, readJsonText).value_or(QString())};
    return fields.intact() ? std::optional(std::move(set)) : std::nullopt;
}

}  // namespace morvak
