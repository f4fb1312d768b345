#pragma once

#include <QString>

#include <optional>

class QMimeData;

namespace morvak {

/// The absolute path of the first folder of this computer among what is being dragged; none without one.
[[nodiscard]] std::optional<QString> droppedFolder(const QMimeData& data);

}  // namespace morvak
