#include "ui/rename/FolderRow.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/DroppedFolder.h"
#include "ui/base/blocks/PathField.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int labelWidth = 72;

}  // namespace

FolderRow::FolderRow(const QString& label, QWidget* parent) : QWidget(parent), m_path(new PathField)
{
    setAcceptDrops(true);
    QLabel* const text = makeText(label, TextStyle::body);
    text->setMinimumWidth(labelWidth);
    m_path->setObjectName(u"path"_s);
    m_path->setAccessibleName(label);
    QPushButton* const choose = makeButton(tr("Kies map..."));
    choose->setObjectName(u"chooseFolder"_s);
    choose->setAccessibleName(tr("%1: kies map").arg(label));
    choose->setToolTip(tr("Of sleep een map naar deze regel"));
    connect(choose, &QPushButton::clicked, this, &FolderRow::chooseAsked);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(text);
    row->addWidget(m_path, 1);
    row->addWidget(choose);
    setFolder({});
}

void FolderRow::setFolder(const QString& path)
{
    m_folder = path;
    m_path->setPath(path, tr("Geen map geselecteerd"));
    Q_EMIT folderChanged();
}

void FolderRow::dragEnterEvent(QDragEnterEvent* event)
{
    if (droppedFolder(*event->mimeData()))
        event->acceptProposedAction();
}

void FolderRow::dropEvent(QDropEvent* event)
{
    if (const std::optional<QString> folder = droppedFolder(*event->mimeData())) {
        event->acceptProposedAction();
        setFolder(*folder);
    }
}

}  // namespace morvak
