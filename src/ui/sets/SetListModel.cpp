#include "ui/sets/SetListModel.h"

#include "actions/SetTexts.h"
#include "ui/sets/SetSearch.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace morvak {

namespace {

bool sameItem(const SetItem& a, const SetItem& b)
{
    return a.name == b.name && a.color == b.color;
}

bool readsTheSame(const SetData& a, const SetData& b)
{
    return a.setNumber == b.setNumber && a.brand == b.brand && a.model == b.model &&
           (a.items.constData() == b.items.constData() || std::ranges::equal(a.items, b.items, sameItem));
}

}  // namespace

void SetListModel::setSets(const QList<SetData>& sets, std::optional<QUuid> activeId)
{
    const std::optional<QUuid> activeBefore = std::exchange(m_activeId, activeId);
    const Change change = changeTo(sets);
    takeRows(sets, change);
    for (int row = 0; row < rowCount(); ++row) {
        if (row >= change.first && row < change.first + change.added)
            continue;
        const QUuid id = sets[row].id;
        const bool activeChanged = (id == activeBefore) != (id == activeId);
        if (takeSet(m_rows[row], sets[row]) || activeChanged)
            Q_EMIT dataChanged(index(row), index(row));
    }
}

/// Between the rows at the start and at the end that are in both lists, the old ones go and the new ones
/// come.
SetListModel::Change SetListModel::changeTo(const QList<SetData>& sets) const
{
    const auto sameId = [](const Row& row, const SetData& set) { return row.set.id == set.id; };
    const auto start = std::mismatch(m_rows.cbegin(), m_rows.cend(), sets.cbegin(), sets.cend(), sameId);
    const auto end = std::mismatch(m_rows.crbegin(), std::make_reverse_iterator(start.first), sets.crbegin(),
                                   std::make_reverse_iterator(start.second), sameId);
    const auto first = static_cast<int>(start.first - m_rows.cbegin());
    const auto last = static_cast<int>(end.first - m_rows.crbegin());
    return {.first = first,
            .removed = static_cast<int>(m_rows.size()) - first - last,
            .added = static_cast<int>(sets.size()) - first - last};
}

void SetListModel::takeRows(const QList<SetData>& sets, const Change& change)
{
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_rows.remove(change.first, change.removed);
        endRemoveRows();
    }
    if (change.added > 0) {
        beginInsertRows({}, change.first, change.first + change.added - 1);
        m_rows.insert(change.first, change.added, Row());
        for (int row = change.first; row < change.first + change.added; ++row)
            m_rows[row] = {sets[row], SetSearch::keyOf(sets[row])};
        endInsertRows();
    }
}

/// Whether the row looks different now.
bool SetListModel::takeSet(Row& row, const SetData& set) const
{
    const bool reads = readsTheSame(row.set, set);
    const bool counts = row.set.taggedCount == set.taggedCount;
    row.set = set;
    if (!reads)
        row.searchKey = SetSearch::keyOf(set);
    return !reads || !counts;
}

QModelIndex SetListModel::indexOf(QUuid setId) const
{
    const auto found = std::ranges::find_if(m_rows, [setId](const Row& row) { return row.set.id == setId; });
    return found == m_rows.cend() ? QModelIndex() : index(static_cast<int>(found - m_rows.cbegin()));
}

int SetListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SetListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto& [set, searchKey] = m_rows[index.row()];
    const bool isActive = set.id == m_activeId;
    switch (role) {
        case IdRole:
            return set.id;
        case Qt::DisplayRole:
        case HeadlineRole:
            return SetTexts::name(set);
        case DescriptionRole:
            return set.description();
        case CountRole:
            return SetTexts::count(set);
        case ActiveRole:
            return isActive;
        case SearchKeyRole:
            return searchKey;
        case Qt::AccessibleTextRole:
            return SetTexts::spoken(set, isActive);
        default:
            return {};
    }
}

}  // namespace morvak
