#include "ui/base/blocks/CopyableList.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace morvak {

CopyableList::CopyableList(int lineRole, QWidget* parent) : QListView(parent), m_lineRole(lineRole)
{
    setSelectionMode(ExtendedSelection);
    setResizeMode(Adjust);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    const auto add = [this](const QString& text, QKeySequence::StandardKey key, auto&& act) {
        auto* const action = new QAction(text, this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, act);
        addAction(action);
    };
    add(tr("Kopieer"), QKeySequence::Copy, [this] {
        if (selectionModel()->hasSelection())
            QGuiApplication::clipboard()->setText(selectedText());
    });
    add(tr("Selecteer alles"), QKeySequence::SelectAll, [this] { selectAll(); });
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

QSize CopyableList::sizeHint() const
{
    return {QListView::sizeHint().width(), minimumHeight()};
}

QString CopyableList::selectedText() const
{
    QModelIndexList rows = selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : std::as_const(rows))
        lines.append(row.data(m_lineRole).toString());
    return lines.join(u'\n');
}

}  // namespace morvak
