#pragma once

#include "model/Tagging.h"

#include <QByteArray>
#include <QDir>
#include <QList>
#include <QStringList>

namespace morvak::bench {

/// The photos of one measurement: a few kinds in turn, held in memory, so that writing them costs little.
class BenchShoot {
public:
    /// JPEG, NEF and DNG in turn, each of about `size` bytes, with a preview of 1,620 pixels.
    [[nodiscard]] static BenchShoot mixed(qsizetype count, qsizetype size);

    /// NEF only, otherwise the same.
    [[nodiscard]] static BenchShoot nef(qsizetype count, qsizetype size);

    /// Only JPEG, as small as they come.
    [[nodiscard]] static BenchShoot small(qsizetype count);

    [[nodiscard]] const QStringList& names() const { return m_names; }
    [[nodiscard]] const QByteArray& bytes(qsizetype index) const
    {
        return m_kinds.at(index % m_kinds.size());
    }

    /// Writes one photo under its final name; the program ends when it cannot.
    void write(const QDir& folder, qsizetype index) const;

    /// Writes all of them as fast as it goes.
    void drop(const QDir& folder) const;

private:
    BenchShoot(qsizetype count, QList<QByteArray> kinds, const QStringList& suffixes);

    QList<QByteArray> m_kinds;
    QStringList m_names;
};

/// What everybody tags with.
[[nodiscard]] const Tagging& benchTagging();

/// How many of the photos carry all of its tags, read back in one run of exiftool.
[[nodiscard]] qsizetype countTagged(const QDir& folder, const QStringList& names);

}  // namespace morvak::bench
