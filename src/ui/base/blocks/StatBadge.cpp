#include "ui/base/blocks/StatBadge.h"

#include "ui/base/blocks/TextLook.h"

#include <QLabel>
#include <QVBoxLayout>

namespace morvak {

StatBadge::StatBadge(const QString& label, Role valueRole, QWidget* parent)
    : QWidget(parent), m_label(label), m_value(makeText({}, TextStyle::title, valueRole))
{
    m_value->setFont(tabularFont(m_value->font()));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_value, 0, Qt::AlignHCenter);
    column->addWidget(makeText(label, TextStyle::caption, Role::secondary), 0, Qt::AlignHCenter);
}

void StatBadge::setValue(const QString& value)
{
    m_value->setText(value);
    setAccessibleName(value + u' ' + m_label);
}

QString StatBadge::value() const
{
    return m_value->text();
}

}  // namespace morvak
