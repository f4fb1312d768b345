#pragma once

#include <QListView>
#include <QUuid>

namespace morvak {

class SetDelegate;
class Theme;

/// The list of sets. A double click, Return, or a click on a row's "Activeer" asks to activate its set.
class SetList final : public QListView {
    Q_OBJECT

public:
    explicit SetList(const Theme& theme, QWidget* parent = nullptr);

Q_SIGNALS:
    void activationAsked(QUuid setId);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] QModelIndex actionAt(const QPoint& position) const;
    void hoverAction(const QModelIndex& index);
    void ask(const QModelIndex& index);

    SetDelegate* m_delegate;
    QPersistentModelIndex m_pressedAction;
    QPersistentModelIndex m_hoveredAction;
};

}  // namespace morvak
