#pragma once

#include "platform/PhotoFile.h"

#include <QHash>
#include <QString>

#include <optional>

namespace morvak {

/// What is known of the photos in the watched folder, by absolute path, so that looking through the folder
/// tells the photos that nobody has heard of from those that were dealt with.
class KnownPhotos {
public:
    void clear();

    /// The photo was there already, or has just been tagged.
    void noteTagged(const QString& path, const FileState& state);

    /// The photo was dealt with and needs no second look, whether or not it carries a tag. Without a state,
    /// which is what a folder that vanished at that moment leaves, that holds for whatever state it is in
    /// when it is next found.
    void noteDealtWith(const QString& path, const std::optional<FileState>& state);

    /// Bytes that the photo had when it was last seen tagged or already present; none when it was not.
    [[nodiscard]] std::optional<quint64> taggedSize(const QString& path) const;

    /// Whether the photo is tagged and unchanged to the nanosecond: the echo of our own writing.
    [[nodiscard]] bool isTaggedAs(const QString& path, const FileState& state) const;

    /// Whether a photo that is found in this state, with no event telling of it, needs a run.
    [[nodiscard]] bool isNew(const QString& path, const FileState& state) const;

private:
    QHash<QString, FileState> m_tagged;
    QHash<QString, std::optional<FileState>> m_dealtWith;
};

}  // namespace morvak
