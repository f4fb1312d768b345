#include "ui/base/blocks/IconButton.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

namespace morvak {

IconButton::IconButton(const Theme& theme, const QString& symbol, const QString& help, QWidget* parent,
                       Role role)
    : QToolButton(parent), m_theme(theme)
{
    setIconSize({metrics::smallIcon, metrics::smallIcon});
    setFocusPolicy(Qt::StrongFocus);
    setSymbol(symbol, role);
    setHelp(help);
}

void IconButton::setSymbol(const QString& symbol, Role role)
{
    setIcon(m_theme.icons().icon(symbol, role));
}

void IconButton::setHelp(const QString& help)
{
    setToolTip(help);
    setAccessibleName(help);
}

}  // namespace morvak
