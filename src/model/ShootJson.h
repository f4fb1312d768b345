#pragma once

#include "model/DateForm.h"
#include "model/Shoot.h"

#include <QJsonValue>

#include <optional>

namespace morvak {

/// The JSON objects of shoots and their activation log, as `SetJson.h` has it for sets. A missing
/// `watchFolderPath` is none, a missing `activationLog` empty; a shoot without a folder is written without
/// that key. Pure, any thread.

void writeShoot(JsonWriter& json, const Shoot& shoot, const DateForm& dates);
[[nodiscard]] std::optional<Shoot> readShoot(const QJsonValue& value, const DateForm& dates,
                                             JsonFault& fault);

}  // namespace morvak
