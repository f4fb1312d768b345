#include "ui/catalog/RowListModel.h"

#include <QSet>

#include <algorithm>

namespace morvak {

void RowListModel::setRows(const QList<ListedRow>& rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

int RowListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant RowListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ListedRow& row = m_rows[index.row()];
    switch (role) {
        case KeyRole:
            return row.key;
        case Qt::DisplayRole:
            return row.text;
        case DetailRole:
            return row.detail;
        case Qt::AccessibleTextRole:
            return row.detail.isEmpty() ? row.text : row.text + QStringLiteral(", ") + row.detail;
        default:
            return {};
    }
}

int nextCurrentRow(const QList<ListedRow>& before, int current, const QList<ListedRow>& after)
{
    const auto rowOf = [&after](const auto& isIt) {
        const auto found = std::ranges::find_if(after, isIt, &ListedRow::key);
        return found == after.cend() ? -1 : static_cast<int>(found - after.cbegin());
    };
    QSet<QString> known;
    for (const ListedRow& row : before)
        known.insert(row.key);
    const auto isNew = [&known](const QString& key) { return !known.contains(key); };
    if (!before.isEmpty() && after.size() == before.size() + 1 &&
        std::ranges::count_if(after, isNew, &ListedRow::key) == 1)
        return rowOf(isNew);
    if (current < 0)
        return -1;
    const int kept = rowOf([&](const QString& key) { return key == before[current].key; });
    return kept >= 0 ? kept : std::min(current, static_cast<int>(after.size()) - 1);
}

}  // namespace morvak
