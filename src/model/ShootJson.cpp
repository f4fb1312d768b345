#include "model/ShootJson.h"

#include "model/SetJson.h"
#include "text/JsonFields.h"
#include "text/JsonWriter.h"

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

void writeActivation(JsonWriter& json, const SetActivation& activation, const DateForm& dates)
{
    json.beginObject();
    dates.write(json.key("activatedAt"_L1), activation.activatedAt);
    writeId(json.key("setId"_L1), activation.setId);
    json.endObject();
}

std::optional<SetActivation> readActivation(const QJsonValue& value, const DateForm& dates, JsonFault& fault)
{
    JsonFields fields(value, fault);
    SetActivation activation{.setId = fields.uuid("setId"_L1),
                             .activatedAt = fields.required("activatedAt"_L1, dates.read)};
    return fields.intact() ? std::optional(activation) : std::nullopt;
}

}  // namespace

void writeShoot(JsonWriter& json, const Shoot& shoot, const DateForm& dates)
{
    json.beginObject();
    json.key("activationLog"_L1).list(shoot.activationLog, [&](const SetActivation& activation) {
        writeActivation(json, activation, dates);
    });
    json.key("client"_L1).text(shoot.client);
    dates.write(json.key("date"_L1), shoot.date);
    writeId(json.key("id"_L1), shoot.id);
    json.key("location"_L1).text(shoot.location);
    json.key("name"_L1).text(shoot.name);
    json.key("sets"_L1).list(shoot.sets, [&](const SetData& set) { writeSet(json, set, dates); });
    if (shoot.watchFolderPath)
        json.key("watchFolderPath"_L1).text(*shoot.watchFolderPath);
    json.endObject();
}

std::optional<Shoot> readShoot(const QJsonValue& value, const DateForm& dates, JsonFault& fault)
{
    const auto withDates = [&dates](auto* read) {
        return [&dates, read](const QJsonValue& element, JsonFault& inner) {
            return read(element, dates, inner);
        };
    };
    JsonFields fields(value, fault);
    Shoot shoot{.id = fields.uuid("id"_L1),
                .name = fields.text("name"_L1),
                .location = fields.text("location"_L1),
                .client = fields.text("client"_L1),
                .date = fields.required("date"_L1, dates.read),
                .sets = fields.required("sets"_L1, listOf(withDates(readSet))),
                .watchFolderPath = fields.optional("watchFolderPath"_L1, readJsonText),
                .activationLog = fields.optional("activationLog"_L1, listOf(withDates(readActivation)))
                                     .value_or(QList<SetActivation>())};
    return fields.intact() ? std::optional(std::move(shoot)) : std::nullopt;
}

}  // namespace morvak
