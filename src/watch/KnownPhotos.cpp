#include "watch/KnownPhotos.h"

namespace morvak {

namespace {

// A FAT file system gives times back rounded to two seconds once it has been unmounted.
constexpr qint64 coarsestTimeNs = 2'000'000'000;

}  // namespace

void KnownPhotos::clear()
{
    m_tagged.clear();
    m_dealtWith.clear();
}

void KnownPhotos::noteTagged(const QString& path, const FileState& state)
{
    m_tagged.insert(path, state);
}

void KnownPhotos::noteDealtWith(const QString& path, const std::optional<FileState>& state)
{
    m_dealtWith.insert(path, state);
}

std::optional<quint64> KnownPhotos::taggedSize(const QString& path) const
{
    const auto photo = m_tagged.constFind(path);
    return photo == m_tagged.constEnd() ? std::nullopt : std::optional(photo->size);
}

bool KnownPhotos::isTaggedAs(const QString& path, const FileState& state) const
{
    const auto photo = m_tagged.constFind(path);
    return photo != m_tagged.constEnd() && isUnchanged(*photo, state);
}

bool KnownPhotos::isNew(const QString& path, const FileState& state) const
{
    if (taggedSize(path) == state.size)
        return false;
    const auto photo = m_dealtWith.constFind(path);
    return photo == m_dealtWith.constEnd() || (*photo && !isUnchanged(**photo, state, coarsestTimeNs));
}

}  // namespace morvak
