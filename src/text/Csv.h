#pragma once

#include <QString>

namespace morvak {

/// One field of a CSV row as it is written: quoted, with its quotes doubled, when it holds a semicolon, a
/// double quote or a line feed; as it is otherwise. Pure, any thread.
[[nodiscard]] QString csvField(const QString& value);

}  // namespace morvak
