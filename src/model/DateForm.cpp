#include "model/DateForm.h"

#include "text/JsonFields.h"
#include "text/JsonWriter.h"

namespace morvak {

namespace {

void writeNumber(JsonWriter& json, Timestamp date)
{
    json.number(date.seconds);
}

std::optional<Timestamp> readNumber(const QJsonValue& value, JsonFault& fault)
{
    const std::optional<double> seconds = readJsonNumber(value, fault);
    return seconds ? std::optional(Timestamp{*seconds}) : std::nullopt;
}

void writeIsoDate(JsonWriter& json, Timestamp date)
{
    if (const std::optional<QString> text = date.toIsoDate()) {
        json.text(*text);
    } else {
        json.spoil();
    }
}

std::optional<Timestamp> readIsoDate(const QJsonValue& value, JsonFault& fault)
{
    const std::optional<QString> text = readJsonText(value, fault);
    if (!text)
        return std::nullopt;
    const std::optional<Timestamp> date = Timestamp::fromIsoDate(*text);
    if (!date)
        fault = {{}, QStringLiteral("is geen datum zoals 2025-03-14T09:30:00Z")};
    return date;
}

}  // namespace

const DateForm numericDates{writeNumber, readNumber};
const DateForm isoDates{writeIsoDate, readIsoDate};

}  // namespace morvak
