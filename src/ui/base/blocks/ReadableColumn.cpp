#include "ui/base/blocks/ReadableColumn.h"

#include "ui/base/theme/Metrics.h"

#include <QVBoxLayout>

namespace morvak {

ReadableColumn::ReadableColumn(const QString& name, QWidget* parent)
    : QScrollArea(parent), m_content(new QVBoxLayout)
{
    auto* const inside = new QWidget;
    auto* const centring = new QHBoxLayout(inside);
    centring->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                                 metrics::windowMargin);
    auto* const column = new QWidget;
    column->setMaximumWidth(metrics::readableWidth);
    column->setLayout(m_content);
    m_content->setContentsMargins(0, 0, 0, 0);
    m_content->setSpacing(metrics::betweenGroups);
    centring->addStretch(1);
    centring->addWidget(column, 1000);
    centring->addStretch(1);

    setAccessibleName(name);
    setWidget(inside);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ReadableColumn::reveal(QWidget& part)
{
    QMetaObject::invokeMethod(
        &part, [this, &part] { ensureWidgetVisible(&part, 0, metrics::windowMargin); }, Qt::QueuedConnection);
}

}  // namespace morvak
