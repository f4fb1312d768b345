#include "ui/rename/RenameResultModel.h"

#include "ui/rename/RenameTexts.h"

#include <QTextDocument>

namespace morvak {

void RenameResultModel::setSummary(const RawRenameSummary& summary)
{
    beginResetModel();
    m_summary = summary;
    endResetModel();
}

int RenameResultModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_summary.results.size());
}

QVariant RenameResultModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const RawRenameResult& result = m_summary.results.at(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return RenameTexts::plain(result);
        case Qt::ToolTipRole:
            return Qt::convertFromPlainText(RenameTexts::plain(result));  // a name may look like a tag
        case NameRole:
            return result.originalFileName;
        case SymbolRole:
            return RenameTexts::line(result).symbol;
        case SymbolColorRole:
            return static_cast<int>(RenameTexts::line(result).role);
        case RestRole:
            return RenameTexts::line(result).rest;
        case IsRenamedRole:
            return std::holds_alternative<RawRenameResult::Renamed>(result.outcome);
        default:
            return {};
    }
}

}  // namespace morvak
