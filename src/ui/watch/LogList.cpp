#include "ui/watch/LogList.h"

#include "ui/base/theme/Theme.h"
#include "ui/watch/LogDelegate.h"
#include "ui/watch/LogModel.h"

#include <QScrollBar>

namespace morvak {

LogList::LogList(const Theme& theme, LogModel& model, QWidget* parent)
    : CopyableList(LogModel::LineRole, parent)
{
    setAccessibleName(tr("Activiteitenlog"));
    setItemDelegate(new LogDelegate(theme, this));
    setModel(&model);
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

void LogList::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const int place = verticalScrollBar()->value();
    CopyableList::rowsInserted(parent, start, end);
    if (place == verticalScrollBar()->minimum() || end + 1 >= model()->rowCount())
        return;
    executeDelayedItemsLayout();
    const int added =
        visualRect(model()->index(end + 1, 0)).top() - visualRect(model()->index(start, 0)).top();
    verticalScrollBar()->setValue(place + added);
}

}  // namespace morvak
