#pragma once

#include "ui/base/blocks/CoalescedCall.h"
#include "watch/LogEntry.h"

#include <QAbstractListModel>
#include <QList>

namespace morvak {

class FolderWatcher;

/// The watcher's log as a list, newest first. Follows it a moment later, several lines at a time; lines that
/// are already there keep their place in the model. Main thread.
class LogModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Roles {
        IdRole = Qt::UserRole,
        TimeRole,  ///< text
        TypeRole,  ///< int of a LogType
        LineRole,  ///< all of the entry as plain text
    };

    explicit LogModel(const FolderWatcher& watcher, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The message is the display role.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    void follow();
    void keepFirst(qsizetype count);
    void insertAbove(const QList<LogEntry>& entries);

    const FolderWatcher& m_watcher;
    QList<LogEntry> m_entries;
    CoalescedCall m_follow;
};

}  // namespace morvak
