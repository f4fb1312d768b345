#pragma once

#include "ui/catalog/RowDelegate.h"

#include <QListView>

class QLabel;

namespace morvak {

class RowListModel;
struct ListedRow;

/// A list whose rows have actions: by their buttons, by keys on the current row, by a double click, or from
/// the row's menu. Texts too long for a row are cut, the tooltip has all of them.
class RowList final : public QListView {
    Q_OBJECT

public:
    RowList(const Theme& theme, const QList<RowAction>& actions, QWidget* parent = nullptr);

    /// The current row and the place in the list stay; a row that is added becomes the current one.
    void setRows(const QList<ListedRow>& rows);

    /// Stands in the list while it has no rows.
    void setEmptyText(const QString& text);

Q_SIGNALS:
    /// `action` is an index into the actions, `key` that of the row.
    void asked(int action, const QString& key);

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Button {
        QPersistentModelIndex row;
        int action = -1;

        bool operator==(const Button&) const = default;
    };

    [[nodiscard]] Button buttonAt(const QPoint& position) const;
    void hover(const Button& button);
    void ask(int action, const QModelIndex& index);
    [[nodiscard]] QString toolTipAt(const QPoint& position) const;

    RowDelegate* m_delegate;
    RowListModel* m_model;
    QLabel* m_emptyText;
    Button m_pressed;
    Button m_hovered;
};

}  // namespace morvak
