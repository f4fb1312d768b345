#include "ui/catalog/RowList.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/catalog/RowListModel.h"

#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>
#include <QVBoxLayout>

namespace morvak {

RowList::RowList(const Theme& theme, const QList<RowAction>& actions, QWidget* parent)
    : QListView(parent),
      m_delegate(new RowDelegate(theme, actions, this)),
      m_model(new RowListModel(this)),
      m_emptyText(makeText({}, TextStyle::body, Role::secondary, true))
{
    setItemDelegate(m_delegate);
    setModel(m_model);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));

    m_emptyText->setAlignment(Qt::AlignCenter);
    auto* const centred = new QVBoxLayout(viewport());
    centred->setContentsMargins(metrics::cardPadding, 0, metrics::cardPadding, 0);
    centred->addWidget(m_emptyText);
}

void RowList::setRows(const QList<ListedRow>& rows)
{
    const int current = nextCurrentRow(m_model->rows(), currentIndex().row(), rows);
    const int place = verticalScrollBar()->value();
    m_model->setRows(rows);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place);
    if (current >= 0)
        setCurrentIndex(m_model->index(current));
    m_emptyText->setVisible(rows.isEmpty());
}

void RowList::setEmptyText(const QString& text)
{
    m_emptyText->setText(text);
}

void RowList::ask(int action, const QModelIndex& index)
{
    if (action >= 0 && index.isValid())
        Q_EMIT asked(action, index.data(RowListModel::KeyRole).toString());
}

RowList::Button RowList::buttonAt(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    const int action = index.isValid() ? m_delegate->actionAt(visualRect(index), position) : -1;
    return action < 0 ? Button() : Button{index, action};
}

/// A Return that nobody wants would close the sheet.
void RowList::keyPressEvent(QKeyEvent* event)
{
    const QList<RowAction>& actions = m_delegate->actions();
    for (int action = 0; action < actions.size(); ++action) {
        if (actions[action].keys.contains(event->key())) {
            if (!event->isAutoRepeat())
                ask(action, currentIndex());
            return;
        }
    }
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QListView::keyPressEvent(event);
}

void RowList::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton ? buttonAt(event->pos()) : Button();
    QListView::mousePressEvent(event);
}

void RowList::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    const Button released = buttonAt(event->pos());
    const Button pressed = std::exchange(m_pressed, {});
    if (released.action >= 0 && released == pressed)
        ask(released.action, released.row);
}

/// Two quick presses on a button are one wish.
void RowList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || buttonAt(event->pos()).action >= 0)
        return;
    const QList<RowAction>& actions = m_delegate->actions();
    for (int action = 0; action < actions.size(); ++action) {
        if (actions[action].onDoubleClick)
            ask(action, indexAt(event->pos()));
    }
}

void RowList::mouseMoveEvent(QMouseEvent* event)
{
    QListView::mouseMoveEvent(event);
    hover(buttonAt(event->pos()));
}

void RowList::leaveEvent(QEvent* event)
{
    QListView::leaveEvent(event);
    hover({});
}

void RowList::hover(const Button& button)
{
    if (m_hovered == button)
        return;
    m_hovered = button;
    m_delegate->setHovered(button.row, button.action);
    viewport()->update();
}

void RowList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<RowAction>& actions = m_delegate->actions();
    for (int action = 0; action < actions.size(); ++action) {
        const QAction* const entry = menu->addAction(actions[action].label);
        connect(entry, &QAction::triggered, this, [this, action] { ask(action, currentIndex()); });
    }
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

bool RowList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    QToolTip::showText(help.globalPos(), toolTipAt(help.pos()), viewport());
    return true;
}

/// Empty where there is nothing to say.
QString RowList::toolTipAt(const QPoint& position) const
{
    if (const int action = buttonAt(position).action; action >= 0)
        return m_delegate->actions()[action].help;
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || !m_delegate->isCut(visualRect(index), index))
        return {};
    return Qt::convertFromPlainText(index.data().toString() + u'\n' +
                                    index.data(RowListModel::DetailRole).toString());
}

}  // namespace morvak
