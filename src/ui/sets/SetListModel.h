#pragma once

#include "model/SetData.h"

#include <QAbstractListModel>

#include <optional>

namespace morvak {

/// The sets of one shoot, one to a row, in the order of the shoot.
///
/// A new list is taken over by its differences, so that selection and scroll position stay with their sets.
class SetListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        IdRole = Qt::UserRole,  ///< QUuid
        HeadlineRole,
        DescriptionRole,
        CountRole,      ///< "34 foto's"
        ActiveRole,     ///< bool
        SearchKeyRole,  ///< as `SetSearch` makes it
    };

    using QAbstractListModel::QAbstractListModel;

    void setSets(const QList<SetData>& sets, std::optional<QUuid> activeId);

    /// The row of a set; invalid without one.
    [[nodiscard]] QModelIndex indexOf(QUuid setId) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    struct Row {
        SetData set;
        QString searchKey;
    };
    struct Change {
        int first;
        int removed;
        int added;
    };

    [[nodiscard]] Change changeTo(const QList<SetData>& sets) const;
    void takeRows(const QList<SetData>& sets, const Change& change);
    [[nodiscard]] bool takeSet(Row& row, const SetData& set) const;

    QList<Row> m_rows;
    std::optional<QUuid> m_activeId;
};

}  // namespace morvak
