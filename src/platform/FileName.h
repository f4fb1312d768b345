#pragma once

#include <QByteArray>
#include <QString>

namespace morvak {

/// File names on Linux are bytes; ours are strings. A byte that is not part of valid UTF-8 becomes the lone
/// low surrogate U+DC80..U+DCFF and turns back into that byte, so every file that a folder can hold has a
/// name here and is found again under it. Any thread.
[[nodiscard]] QString decodeFileName(QByteArrayView bytes);
[[nodiscard]] QByteArray encodeFileName(const QString& name);

/// The last path component; all of `path` when it has no slash.
[[nodiscard]] QString lastPathComponent(const QString& path);

/// The lower-cased extension without its dot; empty when the last component has none.
[[nodiscard]] QString lowerCaseExtension(const QString& path);

}  // namespace morvak
