#pragma once

#include <QStyledItemDelegate>

class QCheckBox;

namespace morvak {

class Theme;

/// Draws a row of a choice of sets: check box, name, and description or problem. A click anywhere on the row
/// toggles it, and so does Space.
class SetChoiceDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// For the rows of `view`.
    SetChoiceDelegate(const Theme& theme, QWidget& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    void paintBackground(QPainter& painter, const QStyleOptionViewItem& option) const;
    void paintBox(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const Theme& m_theme;
    QCheckBox* m_likeness;  // never shown: check boxes in the list look like it
};

}  // namespace morvak
