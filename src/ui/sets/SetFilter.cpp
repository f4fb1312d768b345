#include "ui/sets/SetFilter.h"

#include "ui/sets/SetListModel.h"

namespace morvak {

void SetFilter::setSearch(const SetSearch& search)
{
    if (search == m_search)
        return;
    m_search = search;
    invalidateRowsFilter();
}

bool SetFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    return m_search.isEmpty() ||
           m_search.finds(sourceModel()->index(row, 0, parent).data(SetListModel::SearchKeyRole).toString());
}

}  // namespace morvak
