#include "ui/watch/LogList.h"

#include "ui/theme/Theme.h"
#include "ui/watch/LogDelegate.h"
#include "ui/watch/LogModel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

#include <algorithm>

namespace morvak {

LogList::LogList(const Theme& theme, LogModel& model, QWidget* parent) : QListView(parent)
{
    setAccessibleName(tr("Activiteitenlog"));
    setItemDelegate(new LogDelegate(theme, this));
    setModel(&model);
    setSelectionMode(ExtendedSelection);
    setResizeMode(Adjust);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));
    addActions();
}

void LogList::addActions()
{
    auto* const copy = new QAction(tr("Kopieer"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] {
        if (selectionModel()->hasSelection())
            QGuiApplication::clipboard()->setText(selectedText());
    });
    auto* const selectEverything = new QAction(tr("Selecteer alles"), this);
    selectEverything->setShortcut(QKeySequence::SelectAll);
    selectEverything->setShortcutContext(Qt::WidgetShortcut);
    connect(selectEverything, &QAction::triggered, this, &QListView::selectAll);
    QListView::addActions({copy, selectEverything});
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

QString LogList::selectedText() const
{
    QModelIndexList rows = selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : std::as_const(rows))
        lines.append(row.data(LogModel::LineRole).toString());
    return lines.join(u'\n');
}

void LogList::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const int place = verticalScrollBar()->value();
    QListView::rowsInserted(parent, start, end);
    if (place == verticalScrollBar()->minimum() || end + 1 >= model()->rowCount())
        return;
    executeDelayedItemsLayout();
    const int added =
        visualRect(model()->index(end + 1, 0)).top() - visualRect(model()->index(start, 0)).top();
    verticalScrollBar()->setValue(place + added);
}

}  // namespace morvak
