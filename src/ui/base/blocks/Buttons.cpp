#include "ui/base/blocks/Buttons.h"

#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QString nameOf(ButtonKind kind)
{
    switch (kind) {
        case ButtonKind::normal:
            return u"normal"_s;
        case ButtonKind::primary:
            return u"primary"_s;
        case ButtonKind::danger:
            return u"danger"_s;
        case ButtonKind::quiet:
            return u"quiet"_s;
    }
    Q_UNREACHABLE();
}

}  // namespace

void setButtonKind(QPushButton& button, ButtonKind kind)
{
    button.setProperty("kind", nameOf(kind));  // the style sheet has a rule for each
    if (kind == ButtonKind::danger)
        button.setAutoDefault(false);
    button.style()->unpolish(&button);
    button.style()->polish(&button);
}

QPushButton* makeButton(const QString& label, ButtonKind kind, QWidget* parent)
{
    auto* const button = new QPushButton(label, parent);
    setButtonKind(*button, kind);
    return button;
}

}  // namespace morvak
