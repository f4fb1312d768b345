#pragma once

#include <QString>

namespace morvak {

/// The path of the exiftool to use, absolute: the first of these where a file is: below the application's
/// resource directory (skipped when that is empty), $MORVAK_EXIFTOOL, where distributions install it, where
/// package managers do. When there is none the last place is returned, and whoever needs the tool finds
/// nothing there. Only looks whether the file exists. Any thread.
[[nodiscard]] QString findExifTool(const QString& resourceDirectory);

}  // namespace morvak
