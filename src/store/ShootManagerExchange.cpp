// What ShootManager gives to and takes from other programs and other computers.

#include "platform/Diagnostics.h"
#include "store/SetsCsv.h"
#include "store/ShootFile.h"
#include "store/ShootManager.h"
#include "store/StoreFile.h"

#include <algorithm>

namespace morvak {

namespace {

/// Half of what a store file may hold: after the largest import there is room to go on working and saving.
constexpr qsizetype mostBytesWithImport = qsizetype(128) << 20;

QList<SetData> newestFirst(QList<SetData> imported, const QList<SetData>& present)
{
    std::reverse(imported.begin(), imported.end());
    return imported + present;
}

/// The shoot of a file as a new one of this user.
Shoot asNewShoot(Shoot shoot, Timestamp now)
{
    shoot.id = QUuid::createUuid();
    shoot.date = now;
    for (SetData& set : shoot.sets)
        set.id = QUuid::createUuid();
    shoot.watchFolderPath.reset();
    shoot.activationLog.clear();
    return shoot;
}

}  // namespace

QString ShootManager::exportCSV(QUuid shootId) const
{
    const qsizetype at = indexOfShoot(shootId);
    return at < 0 ? QString() : encodeSetsCsv(m_shoots[at].sets);
}

qsizetype ShootManager::importCSV(const QString& text, QUuid shootId)
{
    const qsizetype at = indexOfShoot(shootId);
    if (at < 0)
        return 0;
    QString fault;
    const std::optional<QList<SetData>> sets = decodeSetsCsv(text, fault);
    if (!sets) {
        diagnostic(QStringLiteral("⚠️ De CSV is niet geïmporteerd: %1").arg(fault));
        return 0;
    }
    QList<Shoot> shoots = m_shoots;
    shoots[at].sets = newestFirst(*sets, m_shoots[at].sets);
    if (!takeImported(std::move(shoots)))
        return 0;
    if (!sets->isEmpty())
        Q_EMIT shootsChanged();
    return sets->size();
}

std::optional<QByteArray> ShootManager::exportJSON(QUuid shootId) const
{
    const qsizetype at = indexOfShoot(shootId);
    if (at < 0)
        return std::nullopt;
    std::optional<QByteArray> bytes = encodeShootFile(m_shoots[at]);
    if (!bytes)
        diagnostic(
            QStringLiteral(
                "⚠️ Shoot %1 past niet in een bestand: te groot, of een datum buiten de jaren 0 tot 9999")
                .arg(m_shoots[at].name));
    return bytes;
}

std::optional<Shoot> ShootManager::importShoot(const QByteArray& from)
{
    JsonFault fault;
    std::optional<Shoot> shoot = decodeShootFile(from, fault);
    if (!shoot) {
        diagnostic(QStringLiteral("⚠️ Het shootbestand is niet geopend: %1").arg(fault.message()));
        return std::nullopt;
    }
    shoot = asNewShoot(*std::move(shoot), m_clock());
    if (!takeImported(QList{*shoot} + m_shoots))
        return std::nullopt;
    m_activeShootId = shoot->id;
    Q_EMIT shootsChanged();
    Q_EMIT activeShootIdChanged();
    return shoot;
}

/// Saves the shoots with an import among them in the place of those before. False, with a diagnostic line
/// and nothing changed, when the store file would grow too large.
bool ShootManager::takeImported(QList<Shoot> shoots)
{
    const std::optional<QByteArray> bytes = encodeShoots(shoots);
    if (!bytes || bytes->size() > mostBytesWithImport) {
        diagnostic(
            QStringLiteral("⚠️ Niets is geïmporteerd: %1 zou te groot worden").arg(m_saver.path()));
        return false;
    }
    m_shoots = std::move(shoots);
    m_saver.write(*bytes);
    return true;
}

}  // namespace morvak
