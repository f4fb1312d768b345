#pragma once

#include <QList>
#include <QStringList>

namespace morvak::demo {

/// How many columns of a terminal `text` takes: wide characters (East Asian, emoji) two, combining ones none.
[[nodiscard]] qsizetype terminalWidth(const QString& text);

/// A table with a heading for a terminal, its columns aligned; one string of several lines, each indented by
/// two.
[[nodiscard]] QString textTable(const QStringList& heading, const QList<QStringList>& rows);

}  // namespace morvak::demo
