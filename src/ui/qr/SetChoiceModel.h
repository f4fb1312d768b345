#pragma once

#include "model/SetData.h"

#include <QAbstractListModel>
#include <QSet>

namespace morvak {

/// Sets of which any can be chosen, by their check state; all are at first. Main thread.
class SetChoiceModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Roles {
        DescriptionRole = Qt::UserRole,
        ProblemRole,  ///< why the set has no code; empty when it has one
    };

    explicit SetChoiceModel(const QList<SetData>& sets, QObject* parent = nullptr);

    /// In their own order, whatever the order of choosing.
    [[nodiscard]] QList<SetData> selectedSets() const;
    [[nodiscard]] qsizetype selectedCount() const;
    /// False where there is no set.
    [[nodiscard]] bool allSelected() const;
    void setAllSelected(bool selected);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The name is the display role.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    void selectionChanged();

private:
    void announce();

    QList<SetData> m_sets;
    QSet<QUuid> m_selectedIds;
};

}  // namespace morvak
