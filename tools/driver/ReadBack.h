#pragma once

#include <QHash>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <optional>

namespace morvak::driver {

/// The tags of one photo as exiftool prints them: "XMP:Headline" and so on.
using PhotoTags = QJsonObject;

/// What the photos of `folder` carry, and what exiftool has to complain about in them, by file name, read by
/// one run of it; none when the run failed. Blocks, but no longer than thirty seconds and a little for each
/// photo.
[[nodiscard]] std::optional<QHash<QString, PhotoTags>> readTags(const QString& folder,
                                                                const QStringList& names,
                                                                const QProcessEnvironment& environment);

}  // namespace morvak::driver
