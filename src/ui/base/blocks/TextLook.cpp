#include "ui/base/blocks/TextLook.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <QTextDocument>

namespace morvak {

void setTextLook(QLabel& label, TextStyle style, Role role)
{
    label.setFont(styledFont(QApplication::font(), style));
    label.setProperty("textRole", QString(nameOf(role)));
    label.style()->unpolish(&label);
    label.style()->polish(&label);
}

QLabel* makeText(const QString& text, TextStyle style, Role role, bool wraps, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(wraps);
    setTextLook(*label, style, role);
    return label;
}

QString toolTipOf(const QString& text)
{
    return text.isEmpty() ? QString() : Qt::convertFromPlainText(text);
}

}  // namespace morvak
