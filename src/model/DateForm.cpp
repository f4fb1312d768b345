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

}  // namespace

const DateForm numericDates{writeNumber, readNumber};

}  // namespace morvak
