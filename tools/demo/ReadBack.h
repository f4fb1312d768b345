#pragma once

#include <QHash>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <optional>

namespace morvak::demo {

/// The tags of one photo as exiftool prints them: "XMP:Headline" and so on.
using PhotoTags = QJsonObject;

/// What the photos of `folder` carry, by file name, read by one run of exiftool; none when the run failed.
/// Blocks, but no longer than ten seconds and a little for each photo.
[[nodiscard]] std::optional<QHash<QString, PhotoTags>> readTags(const QString& folder,
                                                                const QStringList& names,
                                                                const QProcessEnvironment& environment);

}  // namespace morvak::demo
