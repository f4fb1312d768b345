#pragma once

#include "ui/sets/SetRow.h"

#include <QStyledItemDelegate>

namespace morvak {

class Theme;

/// One action of one row of the list of sets; none where the row is invalid.
struct SetRowPlace {
    QPersistentModelIndex row;
    SetRowAction action{};

    [[nodiscard]] bool is(const QModelIndex& index, SetRowAction other) const
    {
        return row.isValid() && row == index && action == other;
    }
    [[nodiscard]] bool operator==(const SetRowPlace& other) const
    {
        return row == other.row && (!row.isValid() || action == other.action);
    }
};

/// Paints a row of the list of sets: state, headline and description, count, "ACTIEF" or "Activeer", and the
/// icons of its actions.
class SetDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit SetDelegate(const Theme& theme, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// How the row that stands at `area` is laid out.
    [[nodiscard]] static SetRow rowAt(const QRect& area, const QModelIndex& index);

    /// Headline and description, where there is not room for all of them; else empty.
    [[nodiscard]] QString cutTexts(const QRect& area, const QModelIndex& index) const;

    /// What the pointer is over, and what the keyboard has chosen.
    SetRowPlace hovered;
    SetRowPlace chosen;

private:
    void paintTexts(QPainter& painter, const SetRow& row, const QModelIndex& index) const;
    void paintBadge(QPainter& painter, const QRect& area) const;
    void paintAction(QPainter& painter, const SetRow& row, SetRowAction action,
                     const QModelIndex& index) const;

    const Theme& m_theme;
};

}  // namespace morvak
