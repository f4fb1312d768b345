#pragma once

#include "ui/base/theme/Colors.h"

#include <QStyledItemDelegate>

namespace morvak {

class Theme;

/// Something to be done with a row, by a button at its end, by keys, or in its menu.
struct RowAction {
    QString label;
    QString symbol;  ///< the button shows it; the label where it is empty
    QString help;    ///< tooltip of the button
    Role role = Role::text;
    QList<int> keys;             ///< Qt::Key
    bool onDoubleClick = false;  ///< of the row
};

/// Paints a row: text, detail under it, and a button for each action.
class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    RowDelegate(const Theme& theme, QList<RowAction> actions, QObject* parent = nullptr);

    [[nodiscard]] const QList<RowAction>& actions() const { return m_actions; }

    /// Where a row shows the button of an action, for the row's rectangle.
    [[nodiscard]] QRect actionRect(const QRect& row, int action) const;
    /// The action whose button is at a position; -1 for none.
    [[nodiscard]] int actionAt(const QRect& row, const QPoint& position) const;

    /// Whether the texts of a row do not fit into its rectangle.
    [[nodiscard]] bool isCut(const QRect& row, const QModelIndex& index) const;

    /// The button that the pointer is over.
    void setHovered(const QModelIndex& index, int action);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void paintTexts(QPainter& painter, const QRect& row, const QModelIndex& index) const;
    void paintAction(QPainter& painter, const QRect& area, const RowAction& action, bool isHovered) const;
    [[nodiscard]] QRect textRect(const QRect& row) const;

    const Theme& m_theme;
    QList<RowAction> m_actions;
    QPersistentModelIndex m_hoveredRow;
    int m_hoveredAction = -1;
};

}  // namespace morvak
