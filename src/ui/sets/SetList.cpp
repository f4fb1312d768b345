#include "ui/sets/SetList.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Theme.h"
#include "ui/sets/SetListModel.h"

#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <utility>

namespace morvak {

namespace {

constexpr int fewestRows = 2;

}  // namespace

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
    setTabKeyNavigation(false);
    setAccessibleName(tr("Sets"));
    setAccessibleDescription(
        tr("Enter activeert, F2 bewerkt, Delete verwijdert; de menutoets toont alle acties van een set"));
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

QSize SetList::sizeHint() const
{
    return {QListView::sizeHint().width(), minimumSizeHint().height()};
}

QSize SetList::minimumSizeHint() const
{
    return {QListView::minimumSizeHint().width(), fewestRows * SetRow::height + 2 * frameWidth()};
}

void SetList::ask(const QModelIndex& row, SetRowAction action)
{
    if (!row.isValid())
        return;
    if (action == SetRowAction::activate)
        choose({});  // the control goes
    Q_EMIT asked(action, row.data(SetListModel::IdRole).toUuid());
}

SetRowPlace SetList::placeAt(const QPoint& position) const
{
    const QModelIndex row = indexAt(position);
    if (!row.isValid())
        return {};
    const std::optional<SetRowAction> action = SetDelegate::rowAt(visualRect(row), row).actionAt(position);
    return action ? SetRowPlace{row, *action} : SetRowPlace();
}

/// What a key asks for of the current row.
std::optional<SetRowAction> SetList::actionOf(int key) const
{
    const bool hasChosen = m_delegate->chosen.row.isValid();
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return hasChosen ? m_delegate->chosen.action : SetRowAction::activate;
        case Qt::Key_Space:
            return hasChosen ? std::optional(m_delegate->chosen.action) : std::nullopt;
        case Qt::Key_F2:
            return SetRowAction::edit;
        case Qt::Key_Delete:
            return SetRowAction::remove;
        default:
            return std::nullopt;
    }
}

void SetList::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left))
        return walk(event->key() == Qt::Key_Right ? 1 : -1);
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        return openMenuOfCurrent();
    const std::optional<SetRowAction> action = isPlain ? actionOf(event->key()) : std::nullopt;
    if (!action)
        return QListView::keyPressEvent(event);
    if (!event->isAutoRepeat())
        ask(currentIndex(), *action);
}

void SetList::walk(int step)
{
    const QModelIndex row = currentIndex();
    if (!row.isValid())
        return;
    const SetRowPlace& chosen = m_delegate->chosen;
    const std::optional<SetRowAction> next =
        SetDelegate::rowAt(visualRect(row), row)
            .next(chosen.row.isValid() ? std::optional(chosen.action) : std::nullopt, step);
    choose(next ? SetRowPlace{row, *next} : SetRowPlace());
}

void SetList::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton ? placeAt(event->pos()) : SetRowPlace();
    QListView::mousePressEvent(event);
    choose({});
}

void SetList::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    const SetRowPlace pressed = std::exchange(m_pressed, {});
    if (pressed.row.isValid() && placeAt(event->pos()) == pressed)
        ask(pressed.row, pressed.action);
}

/// Two quick presses on a control are one wish.
void SetList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !placeAt(event->pos()).row.isValid())
        ask(indexAt(event->pos()), SetRowAction::activate);
}

void SetList::mouseMoveEvent(QMouseEvent* event)
{
    QListView::mouseMoveEvent(event);
    hover(placeAt(event->pos()));
}

void SetList::leaveEvent(QEvent* event)
{
    QListView::leaveEvent(event);
    hover({});
}

void SetList::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    choose({});
}

void SetList::hover(const SetRowPlace& place)
{
    if (m_delegate->hovered == place)
        return;
    m_delegate->hovered = place;
    viewport()->update();
}

void SetList::choose(const SetRowPlace& place)
{
    m_delegate->chosen = place;
    viewport()->update();
}

void SetList::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        openMenuOfCurrent();
    else
        openMenu(indexAt(event->pos()), event->globalPos());
}

void SetList::openMenuOfCurrent()
{
    scrollTo(currentIndex());
    openMenu(currentIndex(), viewport()->mapToGlobal(visualRect(currentIndex()).center()));
}

void SetList::openMenu(const QPersistentModelIndex& row, const QPoint& globalPosition)
{
    if (!row.isValid())
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const std::array<std::pair<QString, SetRowAction>, 4> entries{
        {{tr("Bewerken"), SetRowAction::edit},
         {tr("QR-code tonen"), SetRowAction::showQR},
         {tr("Activeren"), SetRowAction::activate},
         {tr("Verwijderen"), SetRowAction::remove}}};
    for (const auto& [label, action] : entries)
        menu->addAction(label, this, [this, row, wanted = action] { ask(row, wanted); });
    menu->popup(globalPosition);
}

bool SetList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QString text = toolTipAt(help->pos());
    QToolTip::showText(help->globalPos(), toolTipOf(text), viewport());
    return true;
}

QString SetList::toolTipAt(const QPoint& position) const
{
    const SetRowPlace place = placeAt(position);
    if (place.row.isValid())
        return SetRow::help(place.action);
    const QModelIndex row = indexAt(position);
    return row.isValid() ? m_delegate->cutTexts(visualRect(row), row) : QString();
}

void SetList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    choose({});
}

/// A set that comes in above must not push away what the user is looking at.
void SetList::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const int place = verticalScrollBar()->value();
    QListView::rowsInserted(parent, start, end);
    if (place == 0 || start * SetRow::height > place || end - start + 1 == model()->rowCount())
        return;
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place + (end - start + 1) * SetRow::height);
}

}  // namespace morvak
