#pragma once

#include <QStringView>

#include <optional>

namespace morvak {

/// What is taken from texts that the user imports. Far above any shoot or catalog, and low enough that
/// whatever a text holds, its records fit into memory and their store file can be read back.

constexpr qint64 mostImportedBytes = qint64(64) << 20;         ///< of one text, as UTF-8
constexpr qsizetype mostImportedRecords = qsizetype(500'000);  ///< of one text: sets and items, or the like

/// `text` without its byte-order mark; none when it is too long. Pure, any thread.
[[nodiscard]] std::optional<QStringView> importableText(QStringView text);

}  // namespace morvak
