#include "ui/base/blocks/PathField.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Colors.h"

#include <QStyle>

using namespace Qt::StringLiterals;

namespace morvak {

PathField::PathField(QWidget* parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setAcceptDrops(false);
    setMinimumWidth(80);
    setTextMargins(-2, 0, 0, 0);  // the field's own; the text stands in line with what is above and below
    setStyleSheet(u"QLineEdit:!focus { border: none; background: transparent; padding: 0; }"_s);
}

void PathField::setPath(const QString& path, const QString& placeholder)
{
    m_path = path;
    m_placeholder = placeholder;
    setToolTip(toolTipOf(path));
    setAccessibleDescription(path);
    setFocusPolicy(path.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    const QString role = nameOf(path.isEmpty() ? Role::secondary : Role::text);
    if (property("textRole") != role) {
        setProperty("textRole", role);
        style()->unpolish(this);
        style()->polish(this);
    }
    showText();
}

void PathField::showText()
{
    const QString whole = m_path.isEmpty() ? m_placeholder : m_path;
    // The field keeps a margin of its own on both sides of the text, and room for the cursor.
    const QString shown =
        hasFocus() ? whole : fontMetrics().elidedText(whole, Qt::ElideMiddle, contentsRect().width() - 8);
    if (text() == shown)
        return;
    setText(shown);
    setCursorPosition(0);
}

void PathField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    showText();
}

void PathField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    showText();
}

void PathField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    showText();
}

}  // namespace morvak
