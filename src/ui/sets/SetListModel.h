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
        CountRole,   ///< "34 foto's"
        ActiveRole,  ///< bool
    };

    using QAbstractListModel::QAbstractListModel;

    void setSets(const QList<SetData>& sets, std::optional<QUuid> activeId);
    [[nodiscard]] const QList<SetData>& sets() const { return m_sets; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    struct Change {
        int first;
        int removed;
        int added;
    };

    [[nodiscard]] Change changeTo(const QList<SetData>& sets) const;
    void takeRows(const QList<SetData>& sets, const Change& change);

    QList<SetData> m_sets;
    std::optional<QUuid> m_activeId;
};

}  // namespace morvak
