#pragma once

#include <QSet>
#include <QString>

namespace morvak {

/// Lower-case extensions without the dot.
[[nodiscard]] const QSet<QString>& rawExtensions();
[[nodiscard]] const QSet<QString>& allExtensions();  ///< those that are processed at all

[[nodiscard]] bool isPhotoName(const QString& pathOrName);
[[nodiscard]] bool isRawName(const QString& pathOrName);

}  // namespace morvak
