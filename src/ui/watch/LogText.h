#pragma once

#include "ui/base/theme/Colors.h"
#include "watch/LogEntry.h"

#include <QFont>
#include <QList>
#include <QTextLayout>

#include <optional>

namespace morvak {

/// The time of an entry as hours, minutes and seconds.
[[nodiscard]] QString clockTime(const LogEntry& entry);

/// An entry as a line of plain text.
[[nodiscard]] QString logLine(const LogEntry& entry);

/// The marker of a type: a symbol of its own shape, in a colour of its own.
[[nodiscard]] QString markerSymbol(LogType type);
[[nodiscard]] Role markerRole(LogType type);

/// The type in a Dutch word, for who cannot see the marker.
[[nodiscard]] QString typeName(LogType type);

/// The newest entry that is a warning or an error.
[[nodiscard]] std::optional<LogEntry> newestFailure(const QList<LogEntry>& log);

/// A message without the emoji and the blank that it starts with.
[[nodiscard]] QString withoutSymbol(const QString& message);

/// Formats that have the emoji of a text drawn by an emoji font: characters with emoji presentation, and
/// those that a variation selector 16 asks it for (Unicode Technical Standard 51). A text font that has a
/// drawing in black and white would win otherwise.
[[nodiscard]] QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& textFont);

}  // namespace morvak
