#pragma once

#include "text/JsonFields.h"

#include <QByteArray>

namespace morvak {

/// Reads one JSON text (RFC 8259) whose top level is an array or an object; none and the fault when it is
/// none. A byte-order mark is skipped. Pure, any thread.
[[nodiscard]] std::optional<QJsonValue> parseJson(const QByteArray& bytes, JsonFault& fault);

/// Whether a text is short enough, and holds few enough values, to be read without filling the memory even
/// when somebody made it for that. Pure, any thread.
[[nodiscard]] bool isModestJson(const QByteArray& bytes);

/// `parseJson` for a text from outside, which has to be modest.
[[nodiscard]] std::optional<QJsonValue> parseForeignJson(const QByteArray& bytes, JsonFault& fault);

}  // namespace morvak
