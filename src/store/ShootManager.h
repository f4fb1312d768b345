#pragma once

#include "model/Shoot.h"
#include "platform/StoreSaver.h"

#include <QObject>

#include <functional>
#include <optional>

namespace morvak {

/// The shoots of this user, and which shoot and set are active.
///
/// Lives on the main thread. Every assignment to a published field is announced by its signal, when the
/// operation has done all its work. An operation marked "saves" has by then written the store file; one that
/// is given an unknown id changes nothing unless it says so. When the file cannot be written, `saver` says
/// why, and it is tried again until it works; what was entered stays here. A file that could not be read is
/// copied aside before it is replaced.
class ShootManager final : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<Timestamp()>;

    /// Starts empty; `clock` dates new shoots and activations.
    explicit ShootManager(QString savePath, QObject* parent = nullptr, Clock clock = &Timestamp::now,
                          std::chrono::milliseconds saveRetry = StoreSaver::usualRetry);

    [[nodiscard]] const QList<Shoot>& shoots() const { return m_shoots; }
    [[nodiscard]] std::optional<QUuid> activeShootId() const { return m_activeShootId; }
    [[nodiscard]] std::optional<QUuid> activeSetId() const { return m_activeSetId; }

    /// The first shoot with the active id; none without one.
    [[nodiscard]] std::optional<Shoot> activeShoot() const;

    /// The set with the active id, in the active shoot only.
    [[nodiscard]] std::optional<SetData> activeSet() const;

    /// Not checked: an id that no shoot has gives no active shoot.
    void setActiveShootId(std::optional<QUuid> id);

    /// Reads the store file and makes its first shoot active; changes nothing when it cannot be read.
    void load();
    void save();

    /// For the quit: saves what is not in the file yet, the counts among it.
    void saveRest();

    /// How the store file is doing.
    [[nodiscard]] const StoreSaver& saver() const { return m_saver; }

    /// A new shoot stands first and becomes the active one. Saves.
    void createShoot(const QString& name, const QString& location, const QString& client);

    /// When it was the active one, the first remaining shoot becomes active. Always saves.
    void deleteShoot(QUuid id);

    /// None forgets the folder. Saves.
    void setWatchFolder(std::optional<QString> path, QUuid forShootId);

    /// The set comes first in that shoot, as it is. Saves.
    void addSet(QUuid to, const SetData& setData);

    /// Makes the set active, and the shoot that holds it, and records that in the shoot's log. Saves. An id
    /// that no set has becomes the active id all the same, and nothing else happens.
    void activateSet(QUuid id);

    /// The set is replaced as a whole, its id, timestamp and count included. Saves.
    void updateSet(QUuid id, const SetData& updated);

    /// Removes the set everywhere but from the logs; it is not active any more. Always saves.
    void deleteSet(QUuid id);

    /// One more photo carries the set. Does not save: that happens with the next operation that does, or in
    /// the quit.
    void incrementTagCount(QUuid forSet);

    /// Reads set text from a scanner, a card or the keyboard. The set of the active shoot with the same
    /// number and brand is activated; without one the text becomes a new set there. Gives the set that is now
    /// active, or the one just read when no shoot is active; none when the text holds no set. Saves.
    std::optional<SetData> handleScanInput(const QString& text);

    /// The number that a new set gets when the user gives none.
    [[nodiscard]] QString defaultSetNumber() const;

    /// The sets of a shoot as CSV; empty for an unknown id.
    [[nodiscard]] QString exportCSV(QUuid shootId) const;

    /// Each row of a CSV text comes first in the shoot, one after the other. Gives the number of new sets; 0
    /// with a diagnostic line when the text as a whole cannot be used. Saves once.
    qsizetype importCSV(const QString& text, QUuid shootId);

    /// The content of the shoot's file; none for an unknown id, and with a diagnostic line where a file
    /// cannot hold the shoot.
    [[nodiscard]] std::optional<QByteArray> exportJSON(QUuid shootId) const;

    /// The shoot of a shoot file, made now with fresh ids for itself and its sets, without folder and log,
    /// stands first and becomes the active one; it is given back. None with a diagnostic line when the bytes
    /// are no shoot file. Saves.
    std::optional<Shoot> importShoot(const QByteArray& from);

Q_SIGNALS:
    void shootsChanged();
    void activeShootIdChanged();
    void activeSetIdChanged();

private:
    /// Where a set stands: indices into `m_shoots` and its `sets`.
    struct Place {
        qsizetype shoot;
        qsizetype set;
    };

    [[nodiscard]] qsizetype indexOfShoot(std::optional<QUuid> id) const;
    [[nodiscard]] std::optional<Place> findSet(QUuid id) const;
    bool takeImported(QList<Shoot> shoots);
    SetData& setAt(const Place& place) { return m_shoots[place.shoot].sets[place.set]; }

    StoreSaver m_saver;
    Clock m_clock;
    QList<Shoot> m_shoots;  // newest first
    std::optional<QUuid> m_activeShootId;
    std::optional<QUuid> m_activeSetId;
};

}  // namespace morvak
