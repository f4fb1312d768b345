#pragma once

#include "ui/sets/SetSearch.h"

#include <QSortFilterProxyModel>

namespace morvak {

/// The sets of a list model that a search finds, in their order.
class SetFilter final : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSearch(const SetSearch& search);
    [[nodiscard]] const SetSearch& search() const { return m_search; }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    SetSearch m_search;
};

}  // namespace morvak
