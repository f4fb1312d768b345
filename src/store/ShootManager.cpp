#include "store/ShootManager.h"

#include "model/FindById.h"
#include "store/StoreFile.h"

#include <algorithm>
#include <limits>

namespace morvak {

namespace {

template <typename Record>
void removeId(QList<Record>& records, QUuid id)
{
    records.removeIf([&id](const Record& r) { return r.id == id; });
}

std::optional<QUuid> firstId(const QList<Shoot>& shoots)
{
    return shoots.isEmpty() ? std::nullopt : std::optional(shoots.first().id);
}

}  // namespace

ShootManager::ShootManager(QString savePath, QObject* parent, Clock clock,
                           std::chrono::milliseconds saveRetry)
    : QObject(parent), m_saver(std::move(savePath), saveRetry), m_clock(std::move(clock))
{
    connect(&m_saver, &StoreSaver::saveAsked, this, &ShootManager::save);
}

std::optional<Shoot> ShootManager::activeShoot() const
{
    const qsizetype at = indexOfShoot(m_activeShootId);
    return at < 0 ? std::nullopt : std::optional(m_shoots[at]);
}

std::optional<SetData> ShootManager::activeSet() const
{
    const std::optional<Shoot> shoot = activeShoot();
    if (!shoot || !m_activeSetId)
        return std::nullopt;
    const SetData* const set = findById(shoot->sets, *m_activeSetId);
    return set ? std::optional(*set) : std::nullopt;
}

void ShootManager::setActiveShootId(std::optional<QUuid> id)
{
    m_activeShootId = id;
    Q_EMIT activeShootIdChanged();
}

void ShootManager::load()
{
    const std::optional<QByteArray> bytes = m_saver.file().read();
    if (!bytes)
        return;
    JsonFault fault;
    std::optional<QList<Shoot>> shoots = decodeShoots(*bytes, fault);
    if (!shoots) {
        m_saver.file().reject(fault.message());
        return;
    }
    m_saver.file().accept();
    m_shoots = *std::move(shoots);
    m_activeShootId = firstId(m_shoots);
    Q_EMIT shootsChanged();
    Q_EMIT activeShootIdChanged();
}

void ShootManager::save()
{
    if (const std::optional<QByteArray> bytes = encodeShoots(m_shoots))
        m_saver.write(*bytes);
    else
        m_saver.fail(QStringLiteral("een datum is geen getal"));
}

void ShootManager::saveRest()
{
    if (m_saver.isBehind())
        save();
}

void ShootManager::createShoot(const QString& name, const QString& location, const QString& client)
{
    Shoot shoot;
    shoot.name = name;
    shoot.location = location;
    shoot.client = client;
    shoot.date = m_clock();
    m_shoots.prepend(shoot);
    m_activeShootId = shoot.id;
    save();
    Q_EMIT shootsChanged();
    Q_EMIT activeShootIdChanged();
}

void ShootManager::deleteShoot(QUuid id)
{
    removeId(m_shoots, id);
    const bool wasActive = m_activeShootId == id;
    if (wasActive)
        m_activeShootId = firstId(m_shoots);
    save();
    Q_EMIT shootsChanged();
    if (wasActive)
        Q_EMIT activeShootIdChanged();
}

void ShootManager::setWatchFolder(std::optional<QString> path, QUuid forShootId)
{
    const qsizetype at = indexOfShoot(forShootId);
    if (at < 0)
        return;
    m_shoots[at].watchFolderPath = std::move(path);
    save();
    Q_EMIT shootsChanged();
}

void ShootManager::addSet(QUuid to, const SetData& setData)
{
    const qsizetype at = indexOfShoot(to);
    if (at < 0)
        return;
    m_shoots[at].sets.prepend(setData);
    save();
    Q_EMIT shootsChanged();
}

void ShootManager::activateSet(QUuid id)
{
    m_activeSetId = id;
    const std::optional<Place> place = findSet(id);
    if (place) {
        Shoot& shoot = m_shoots[place->shoot];
        m_activeShootId = shoot.id;
        shoot.activationLog.append({.setId = id, .activatedAt = m_clock()});
        save();
        Q_EMIT shootsChanged();
        Q_EMIT activeShootIdChanged();
    }
    Q_EMIT activeSetIdChanged();
}

void ShootManager::updateSet(QUuid id, const SetData& updated)
{
    const std::optional<Place> place = findSet(id);
    if (!place)
        return;
    setAt(*place) = updated;
    save();
    Q_EMIT shootsChanged();
}

void ShootManager::deleteSet(QUuid id)
{
    for (Shoot& shoot : m_shoots)
        removeId(shoot.sets, id);
    const bool wasActive = m_activeSetId == id;
    if (wasActive)
        m_activeSetId.reset();
    save();
    Q_EMIT shootsChanged();
    if (wasActive)
        Q_EMIT activeSetIdChanged();
}

void ShootManager::incrementTagCount(QUuid forSet)
{
    const std::optional<Place> place = findSet(forSet);
    if (!place)
        return;
    qint64& count = setAt(*place).taggedCount;
    if (count < std::numeric_limits<qint64>::max())  // a file may hold any count
        ++count;
    m_saver.noteChange();
    Q_EMIT shootsChanged();
}

std::optional<SetData> ShootManager::handleScanInput(const QString& text)
{
    const std::optional<SetData> parsed = SetData::parse(text);
    if (!parsed || !m_activeShootId)
        return parsed;
    const qsizetype at = indexOfShoot(m_activeShootId);
    SetData result = *parsed;
    if (at >= 0) {
        QList<SetData>& sets = m_shoots[at].sets;
        const auto known = std::find_if(sets.cbegin(), sets.cend(), [&parsed](const SetData& set) {
            return set.setNumber == parsed->setNumber && set.brand == parsed->brand;
        });
        if (known != sets.cend()) {
            result = *known;
        } else {
            sets.prepend(*parsed);  // announced and saved with the activation
        }
    }
    activateSet(result.id);
    return result;
}

QString ShootManager::defaultSetNumber() const
{
    const std::optional<Shoot> shoot = activeShoot();
    return QString::number(shoot ? shoot->sets.size() + 1 : 1);
}

qsizetype ShootManager::indexOfShoot(std::optional<QUuid> id) const
{
    return id ? indexOfId(m_shoots, *id) : -1;
}

std::optional<ShootManager::Place> ShootManager::findSet(QUuid id) const
{
    for (qsizetype shoot = 0; shoot < m_shoots.size(); ++shoot) {
        if (const qsizetype set = indexOfId(m_shoots[shoot].sets, id); set >= 0)
            return Place{shoot, set};
    }
    return std::nullopt;
}

}  // namespace morvak
