#include "ui/sets/SetListModel.h"

#include "ui/sets/SetTexts.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace morvak {

namespace {

bool looksTheSame(const SetData& a, const SetData& b)
{
    return a.taggedCount == b.taggedCount && a.headline() == b.headline() &&
           a.description() == b.description();
}

}  // namespace

void SetListModel::setSets(const QList<SetData>& sets, std::optional<QUuid> activeId)
{
    const QList<SetData> before = m_sets;
    const std::optional<QUuid> activeBefore = std::exchange(m_activeId, activeId);
    const Change change = changeTo(sets);
    takeRows(sets, change);
    for (int row = 0; row < rowCount(); ++row) {
        const bool isNew = row >= change.first && row < change.first + change.added;
        if (isNew)
            continue;
        const SetData& old = before[row < change.first ? row : row - change.added + change.removed];
        const bool activeChanged = (old.id == activeBefore) != (old.id == activeId);
        if (activeChanged || !looksTheSame(old, m_sets[row]))
            Q_EMIT dataChanged(index(row), index(row));
    }
}

/// Between the rows at the start and at the end that are in both lists, the old ones go and the new ones
/// come.
SetListModel::Change SetListModel::changeTo(const QList<SetData>& sets) const
{
    const auto sameId = [](const SetData& a, const SetData& b) { return a.id == b.id; };
    const auto start = std::mismatch(m_sets.cbegin(), m_sets.cend(), sets.cbegin(), sets.cend(), sameId);
    const auto end = std::mismatch(m_sets.crbegin(), std::make_reverse_iterator(start.first), sets.crbegin(),
                                   std::make_reverse_iterator(start.second), sameId);
    const auto first = static_cast<int>(start.first - m_sets.cbegin());
    const auto last = static_cast<int>(end.first - m_sets.crbegin());
    return {.first = first,
            .removed = static_cast<int>(m_sets.size()) - first - last,
            .added = static_cast<int>(sets.size()) - first - last};
}

void SetListModel::takeRows(const QList<SetData>& sets, const Change& change)
{
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_sets.remove(change.first, change.removed);
        endRemoveRows();
    }
    if (change.added > 0)
        beginInsertRows({}, change.first, change.first + change.added - 1);
    m_sets = sets;
    if (change.added > 0)
        endInsertRows();
}

int SetListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sets.size());
}

QVariant SetListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SetData& set = m_sets[index.row()];
    const bool isActive = set.id == m_activeId;
    switch (role) {
        case IdRole:
            return set.id;
        case Qt::DisplayRole:
        case HeadlineRole:
            return SetTexts::name(set);
        case DescriptionRole:
        case Qt::ToolTipRole:
            return set.description();
        case CountRole:
            return SetTexts::count(set);
        case ActiveRole:
            return isActive;
        case Qt::AccessibleTextRole:
            return SetTexts::spoken(set, isActive);
        default:
            return {};
    }
}

}  // namespace morvak
