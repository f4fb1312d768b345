#pragma once

#include "model/Timestamp.h"

#include <QJsonValue>

#include <optional>

namespace morvak {

class JsonWriter;
struct JsonFault;

/// How a JSON file spells its dates. The record codecs take one, as files differ in nothing else.
struct DateForm {
    void (*write)(JsonWriter& json, Timestamp date);
    std::optional<Timestamp> (*read)(const QJsonValue& value, JsonFault& fault);
};

/// The store files: a number, the seconds of `Timestamp`.
extern const DateForm numericDates;

/// The shoot files: texts as `Timestamp` spells and reads them. A date that has no such text spoils what is
/// written.
extern const DateForm isoDates;

}  // namespace morvak
