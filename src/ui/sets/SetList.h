#pragma once

#include "ui/sets/SetDelegate.h"

#include <QListView>
#include <QUuid>

namespace morvak {

/// The list of sets, over a `SetListModel` or a proxy of one. Asks for what the user wants done with a set.
///
/// By mouse: the controls of the row, a double click that activates, a context menu. By keyboard: Return
/// activates, F2 edits, Delete removes; Right and Left walk through the row's controls, which Return and
/// Space then press; the menu key and Shift+F10 open the context menu.
class SetList final : public QListView {
    Q_OBJECT

public:
    explicit SetList(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void asked(SetRowAction action, QUuid setId);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;

private:
    [[nodiscard]] SetRowPlace placeAt(const QPoint& position) const;
    [[nodiscard]] std::optional<SetRowAction> actionOf(int key) const;
    void walk(int step);
    void hover(const SetRowPlace& place);
    void choose(const SetRowPlace& place);
    void openMenuOfCurrent();
    void openMenu(const QPersistentModelIndex& row, const QPoint& globalPosition);
    void ask(const QModelIndex& row, SetRowAction action);
    [[nodiscard]] QString toolTipAt(const QPoint& position) const;

    SetDelegate* m_delegate;
    SetRowPlace m_pressed;
};

}  // namespace morvak
