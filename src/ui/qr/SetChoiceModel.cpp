#include "ui/qr/SetChoiceModel.h"

#include "actions/SetTexts.h"
#include "ui/qr/QRTexts.h"

#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

SetChoiceModel::SetChoiceModel(const QList<SetData>& sets, QObject* parent)
    : QAbstractListModel(parent), m_sets(sets)
{
    setAllSelected(true);
}

QList<SetData> SetChoiceModel::selectedSets() const
{
    QList<SetData> selected;
    std::copy_if(m_sets.begin(), m_sets.end(), std::back_inserter(selected),
                 [this](const SetData& set) { return m_selectedIds.contains(set.id); });
    return selected;
}

qsizetype SetChoiceModel::selectedCount() const
{
    return std::count_if(m_sets.begin(), m_sets.end(),
                         [this](const SetData& set) { return m_selectedIds.contains(set.id); });
}

bool SetChoiceModel::allSelected() const
{
    return !m_sets.isEmpty() && selectedCount() == m_sets.size();
}

void SetChoiceModel::setAllSelected(bool selected)
{
    m_selectedIds.clear();
    if (selected) {
        for (const SetData& set : std::as_const(m_sets))
            m_selectedIds.insert(set.id);
    }
    announce();
}

int SetChoiceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_sets.size());
}

QVariant SetChoiceModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SetData& set = m_sets.at(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return SetTexts::name(set);
        case Qt::CheckStateRole:
            return m_selectedIds.contains(set.id) ? Qt::Checked : Qt::Unchecked;
        case DescriptionRole:
            return set.description();
        case ProblemRole:
            return QRTexts::problem(set.toQRText());
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole: {
            QStringList lines{SetTexts::name(set), set.description(), QRTexts::problem(set.toQRText())};
            lines.removeAll(QString());
            return role == Qt::ToolTipRole ? Qt::convertFromPlainText(lines.join(u'\n'))
                                           : lines.join(u", "_s);
        }
        default:
            return {};
    }
}

bool SetChoiceModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    const QUuid id = m_sets.at(index.row()).id;
    if (value.toInt() == Qt::Checked)
        m_selectedIds.insert(id);
    else
        m_selectedIds.remove(id);
    announce();
    return true;
}

Qt::ItemFlags SetChoiceModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsUserCheckable : flags;
}

void SetChoiceModel::announce()
{
    if (!m_sets.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
    Q_EMIT selectionChanged();
}

}  // namespace morvak
