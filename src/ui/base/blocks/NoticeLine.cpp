#include "ui/base/blocks/NoticeLine.h"

#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/TextLook.h"

#include <QAccessible>
#include <QVBoxLayout>

namespace morvak {

NoticeLine::NoticeLine(QWidget* parent) : QWidget(parent), m_label(new ElidedLabel)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_label);
    setTextLook(*m_label, TextStyle::body, Role::secondary);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &NoticeLine::clear);
}

void NoticeLine::showNotice(const QString& text, Role role, std::chrono::milliseconds duration)
{
    setTextLook(*m_label, TextStyle::body, role);
    m_label->setText(text);
    m_timer.start(duration);
    QAccessibleEvent alert(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeLine::clear()
{
    m_timer.stop();
    m_label->setText({});
}

QString NoticeLine::text() const
{
    return m_label->text();
}

}  // namespace morvak
