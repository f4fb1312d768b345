#pragma once

#include <QByteArrayView>
#include <QString>

class QSaveFile;

namespace morvak {

/// Writing a QSaveFile past its buffer: the one of Qt 6.4 commits as if all were well when the flush of its
/// buffer failed. Each step gives an empty text, or the reason why it failed.

[[nodiscard]] QString openUnbuffered(QSaveFile& file);

/// Writes all of `part`.
[[nodiscard]] QString appendTo(QSaveFile& file, QByteArrayView part);

/// Puts the new file in the place of the old one.
[[nodiscard]] QString putInPlace(QSaveFile& file);

}  // namespace morvak
