#include "ui/base/blocks/EntryField.h"

#include <QKeyEvent>
#include <QPushButton>

namespace morvak {

EntryField::EntryField(const QString& placeholder, QPushButton* button, QWidget* parent)
    : QLineEdit(parent), m_button(button)
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
}

void EntryField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QLineEdit::keyPressEvent(event);
    if (!event->isAutoRepeat())
        m_button->click();
}

}  // namespace morvak
