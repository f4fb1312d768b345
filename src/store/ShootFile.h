#pragma once

#include "model/Shoot.h"
#include "text/JsonFields.h"

#include <QByteArray>

#include <optional>

namespace morvak {

/// The content of a shoot file (`.morvak`): one shoot as a JSON object, indented, its dates as texts to the
/// second. Pure, any thread.

/// None when a date is outside of the years 0 to 9999, or when the file would be larger than those that
/// `decodeShootFile` reads.
[[nodiscard]] std::optional<QByteArray> encodeShootFile(const Shoot& shoot);

/// The whole shoot as the file has it or, when anything in the file is not as it should be, none and the
/// fault.
[[nodiscard]] std::optional<Shoot> decodeShootFile(const QByteArray& bytes, JsonFault& fault);

}  // namespace morvak
