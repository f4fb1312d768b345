#pragma once

#include "model/SetData.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace morvak {

/// Sets as the semicolon-separated text that spreadsheets exchange, one row a set, with a header row. Pure
/// but for the ids and the clock of new sets. Any thread.

/// The fields of one line, without white space around them. A double quote begins or ends a stretch in which
/// semicolons are text, and is dropped: a field cannot hold one. Always one field more than there are
/// semicolons outside of quotes.
[[nodiscard]] QStringList parseCSVRow(QStringView line);

/// The header `Set;Merk;Items;Model;Locatie;Email;Getagd` and the sets in their order, without a line break
/// at the end.
[[nodiscard]] QString encodeSetsCsv(const QList<SetData>& sets);

/// New sets, in the order of the rows; rows with neither a brand nor an item give none. The first line that
/// is not blank is the header, in which the columns are found by their Dutch or English names; 16,384 are
/// looked at. A row without a set number gets its own, counted from 1. None and the fault, in Dutch, when
/// there is no row below a header or when the text holds more than can be imported.
[[nodiscard]] std::optional<QList<SetData>> decodeSetsCsv(const QString& text, QString& fault);

}  // namespace morvak
