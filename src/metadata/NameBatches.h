#pragma once

#include <QStringList>

namespace morvak {

/// The names in their order, in batches of at most `mostNames` and of at most `mostBytes` on a command line,
/// one name at least. Pure.
[[nodiscard]] QList<QStringList> nameBatches(const QStringList& names, qsizetype mostNames,
                                             qsizetype mostBytes);

}  // namespace morvak
