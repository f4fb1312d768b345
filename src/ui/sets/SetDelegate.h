#pragma once

#include <QStyledItemDelegate>

namespace morvak {

class Theme;

/// Paints a row of the list of sets: state, headline and description, count, and "ACTIEF" or "Activeer".
class SetDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit SetDelegate(const Theme& theme, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Where a row shows its "Activeer", for the row's rectangle.
    [[nodiscard]] QRect actionRect(const QRect& row) const;

    /// The row whose "Activeer" the pointer is over; invalid for none.
    void setHoveredAction(const QModelIndex& index) { m_hoveredAction = index; }

private:
    void paintState(QPainter& painter, const QRect& row, bool isActive) const;
    void paintTexts(QPainter& painter, const QRect& row, const QModelIndex& index) const;
    void paintAction(QPainter& painter, const QRect& row, const QModelIndex& index) const;
    [[nodiscard]] QRect countRect(const QRect& row) const;

    const Theme& m_theme;
    QPersistentModelIndex m_hoveredAction;
};

}  // namespace morvak
