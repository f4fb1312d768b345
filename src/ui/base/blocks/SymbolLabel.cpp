#include "ui/base/blocks/SymbolLabel.h"

#include "ui/base/theme/Theme.h"

#include <QPainter>

namespace morvak {

SymbolLabel::SymbolLabel(const Theme& theme, const QString& symbol, int size, Role role, QWidget* parent)
    : SymbolLabel(theme.icons().icon(symbol, role), size, parent)
{
}

SymbolLabel::SymbolLabel(const QIcon& icon, int size, QWidget* parent) : QWidget(parent), m_icon(icon)
{
    setFixedSize(size, size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolLabel::setIcon(const QIcon& icon)
{
    m_icon = icon;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_icon.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

}  // namespace morvak
