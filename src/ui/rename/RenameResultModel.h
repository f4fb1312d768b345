#pragma once

#include "rename/RawRenameSummary.h"

#include <QAbstractListModel>

namespace morvak {

/// The results of one run as a list, in their order. Main thread.
class RenameResultModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Roles {
        NameRole = Qt::UserRole,  ///< the file's old name
        SymbolRole,
        SymbolColorRole,  ///< int of a `Role`
        RestRole,         ///< what stands behind the name
        IsRenamedRole,
    };

    using QAbstractListModel::QAbstractListModel;

    void setSummary(const RawRenameSummary& summary);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The line as plain text is the display role.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    RawRenameSummary m_summary;
};

}  // namespace morvak
