#pragma once

#include <QAbstractListModel>

namespace morvak {

/// One row of a list: what it is known by, its text, and what stands under it (may be empty).
struct ListedRow {
    QString key;
    QString text;
    QString detail;
};

class RowListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { KeyRole = Qt::UserRole, DetailRole };

    using QAbstractListModel::QAbstractListModel;

    void setRows(const QList<ListedRow>& rows);
    [[nodiscard]] const QList<ListedRow>& rows() const { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    QList<ListedRow> m_rows;
};

/// The row to be the current one when `after` takes the place of `before`: the one that was added, else the
/// one that was current, else the one that is in its place now; -1 for none. Pure.
[[nodiscard]] int nextCurrentRow(const QList<ListedRow>& before, int current, const QList<ListedRow>& after);

}  // namespace morvak
