#include "watch/KnownPhotos.h"

#include <cstdlib>

namespace morvak {

namespace {

// A FAT file system gives times back rounded to two seconds once it has been unmounted.
constexpr qint64 coarsestTimeNs = 2'000'000'000;

bool isUnchanged(const FileSignature& before, const FileState& now)
{
    return before.size == now.size && std::abs(before.modified - now.modifiedNs) <= coarsestTimeNs;
}

}  // namespace

void KnownPhotos::clear()
{
    m_tagged.clear();
    m_dealtWith.clear();
}

void KnownPhotos::noteTagged(const QString& path, const FileState& state)
{
    m_tagged.insert(path, FileSignature(state));
}

void KnownPhotos::noteDealtWith(const QString& path, const std::optional<FileState>& state)
{
    m_dealtWith.insert(path, state ? std::optional(FileSignature(*state)) : std::nullopt);
}

std::optional<quint64> KnownPhotos::taggedSize(const QString& path) const
{
    const auto photo = m_tagged.constFind(path);
    return photo == m_tagged.constEnd() ? std::nullopt : std::optional(photo->size);
}

bool KnownPhotos::isTaggedAs(const QString& path, const FileState& state) const
{
    const auto photo = m_tagged.constFind(path);
    return photo != m_tagged.constEnd() && *photo == FileSignature(state);
}

bool KnownPhotos::isNew(const QString& path, const FileState& state) const
{
    if (taggedSize(path) == state.size)
        return false;
    const auto photo = m_dealtWith.constFind(path);
    return photo == m_dealtWith.constEnd() || (*photo && !isUnchanged(**photo, state));
}

}  // namespace morvak
