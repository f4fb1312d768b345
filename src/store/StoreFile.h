#pragma once

#include "model/Shoot.h"
#include "text/JsonFields.h"

#include <QByteArray>

#include <optional>

namespace morvak {

/// The content of shoots.json: one compact JSON array of shoots with numeric dates. Pure, any thread.

/// None when a date is not finite; JSON could not carry it.
[[nodiscard]] std::optional<QByteArray> encodeShoots(const QList<Shoot>& shoots);

/// All shoots or, when anything in the file is not as it should be, none and the fault.
[[nodiscard]] std::optional<QList<Shoot>> decodeShoots(const QByteArray& bytes, JsonFault& fault);

}  // namespace morvak
