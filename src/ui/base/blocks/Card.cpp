#include "ui/base/blocks/Card.h"

#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace morvak {

Card::Card(QWidget* parent) : QFrame(parent), m_content(new QVBoxLayout)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::cardPadding, metrics::cardPadding, metrics::cardPadding,
                               metrics::cardPadding);
    column->setSpacing(metrics::inGroup);
    m_content->setSpacing(metrics::inGroup);
    column->addLayout(m_content, 1);
}

Card::Card(const Theme& theme, const QString& title, const QString& symbol, QWidget* parent, Role symbolRole)
    : Card(parent)
{
    setAccessibleName(title);
    m_titleRow = new QHBoxLayout;
    m_titleRow->setSpacing(metrics::inGroup);
    if (!symbol.isEmpty())
        m_titleRow->addWidget(new SymbolLabel(theme, symbol, metrics::smallIcon, symbolRole));
    m_titleRow->addWidget(makeText(title, TextStyle::section), 1);
    static_cast<QVBoxLayout*>(layout())->insertLayout(0, m_titleRow);
}

}  // namespace morvak
