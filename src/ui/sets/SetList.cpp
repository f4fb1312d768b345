#include "ui/sets/SetList.h"

#include "ui/sets/SetDelegate.h"
#include "ui/sets/SetListModel.h"

#include <QMouseEvent>

namespace morvak {

SetList::SetList(const Theme& theme, QWidget* parent)
    : QListView(parent), m_delegate(new SetDelegate(theme, this))
{
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAccessibleName(tr("Sets"));
}

void SetList::ask(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT activationAsked(index.data(SetListModel::IdRole).toUuid());
}

QModelIndex SetList::actionAt(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    const bool hasAction = index.isValid() && !index.data(SetListModel::ActiveRole).toBool();
    return hasAction && m_delegate->actionRect(visualRect(index)).contains(position) ? index : QModelIndex();
}

void SetList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QListView::keyPressEvent(event);
    if (!event->isAutoRepeat())
        ask(currentIndex());
}

void SetList::mousePressEvent(QMouseEvent* event)
{
    m_pressedAction = event->button() == Qt::LeftButton ? actionAt(event->pos()) : QModelIndex();
    QListView::mousePressEvent(event);
}

void SetList::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    const QModelIndex released = actionAt(event->pos());
    if (released.isValid() && released == m_pressedAction)
        ask(released);
    m_pressedAction = QModelIndex();
}

/// Two quick presses on "Activeer" are one wish.
void SetList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && index.isValid() &&
        !m_delegate->actionRect(visualRect(index)).contains(event->pos()))
        ask(index);
}

void SetList::mouseMoveEvent(QMouseEvent* event)
{
    QListView::mouseMoveEvent(event);
    hoverAction(actionAt(event->pos()));
}

void SetList::leaveEvent(QEvent* event)
{
    QListView::leaveEvent(event);
    hoverAction({});
}

void SetList::hoverAction(const QModelIndex& index)
{
    if (m_hoveredAction == index)
        return;
    m_hoveredAction = index;
    m_delegate->setHoveredAction(index);
    viewport()->update();
}

}  // namespace morvak
