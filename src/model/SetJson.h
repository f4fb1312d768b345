#pragma once

#include "model/DateForm.h"
#include "model/SetData.h"

#include <QJsonValue>

#include <optional>

namespace morvak {

/// The JSON objects of sets and their items; keys are the field names, written all and in sorted order, and
/// ids are upper case. On reading everything is required but `taggedCount` (0) and `email` (empty); none and
/// a fault otherwise. Pure, any thread.

void writeSet(JsonWriter& json, const SetData& set, const DateForm& dates);
[[nodiscard]] std::optional<SetData> readSet(const QJsonValue& value, const DateForm& dates,
                                             JsonFault& fault);

/// An id as a JSON string, for the records that hold sets.
void writeId(JsonWriter& json, const QUuid& id);

}  // namespace morvak
