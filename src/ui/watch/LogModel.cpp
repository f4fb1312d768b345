#include "ui/watch/LogModel.h"

#include "ui/watch/LogText.h"
#include "watch/FolderWatcher.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

LogModel::LogModel(const FolderWatcher& watcher, QObject* parent)
    : QAbstractListModel(parent), m_watcher(watcher), m_entries(watcher.log()), m_follow([this] { follow(); })
{
    connect(&watcher, &FolderWatcher::logChanged, &m_follow, &CoalescedCall::ask);
}

int LogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant LogModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const LogEntry& entry = m_entries.at(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return entry.message;
        case Qt::AccessibleTextRole:
            return u"%1, %2, %3"_s.arg(clockTime(entry), typeName(entry.type), withoutSymbol(entry.message));
        case IdRole:
            return entry.id;
        case TimeRole:
            return clockTime(entry);
        case TypeRole:
            return static_cast<int>(entry.type);
        case LineRole:
            return logLine(entry);
        default:
            return {};
    }
}

/// The log only grows at its top, loses lines at its end, and is emptied; so what it had at our last look is
/// all there behind the new lines, or gone.
void LogModel::follow()
{
    const QList<LogEntry>& log = m_watcher.log();
    const auto known = std::find_if(log.cbegin(), log.cend(), [this](const LogEntry& entry) {
        return !m_entries.isEmpty() && entry.id == m_entries.constFirst().id;
    });
    const qsizetype added = known - log.cbegin();
    keepFirst(log.size() - added);
    insertAbove(log.first(added));
}

void LogModel::keepFirst(qsizetype count)
{
    if (count >= m_entries.size())
        return;
    beginRemoveRows({}, static_cast<int>(count), static_cast<int>(m_entries.size() - 1));
    m_entries.resize(count);
    endRemoveRows();
}

void LogModel::insertAbove(const QList<LogEntry>& entries)
{
    if (entries.isEmpty())
        return;
    beginInsertRows({}, 0, static_cast<int>(entries.size() - 1));
    m_entries = entries + m_entries;
    endInsertRows();
}

}  // namespace morvak
