#include "ui/base/blocks/EmptyState.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvak {

namespace {

constexpr int textWidth = 420;

QLabel* centredText(TextStyle style, Role role)
{
    QLabel* const label = makeText({}, style, role, true);
    label->setAlignment(Qt::AlignCenter);
    label->setMaximumWidth(textWidth);
    return label;
}

void addCentred(QVBoxLayout& column, QWidget* widget)
{
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(widget, qobject_cast<QLabel*>(widget) ? 1000 : 0);
    row->addStretch();
    column.addLayout(row);
}

}  // namespace

EmptyState::EmptyState(const Theme& theme, const QString& symbol, const QString& headline,
                       const QString& hint, QWidget* parent)
    : QWidget(parent),
      m_column(new QVBoxLayout),
      m_headline(centredText(TextStyle::section, Role::text)),
      m_hint(centredText(TextStyle::body, Role::secondary))
{
    auto* const outer = new QVBoxLayout(this);
    outer->addStretch(2);
    outer->addLayout(m_column);
    outer->addStretch(3);
    m_column->setSpacing(metrics::inGroup);
    addCentred(*m_column, new SymbolLabel(theme, symbol, metrics::largeIcon, Role::secondary));
    m_column->addSpacing(metrics::inGroup);
    addCentred(*m_column, m_headline);
    addCentred(*m_column, m_hint);
    setHeadline(headline);
    setHint(hint);
}

void EmptyState::setHeadline(const QString& headline)
{
    m_headline->setText(headline);
    setAccessibleName(headline);
}

void EmptyState::setHint(const QString& hint)
{
    m_hint->setText(hint);
    m_hint->setVisible(!hint.isEmpty());
}

QPushButton* EmptyState::addButton(const QString& label)
{
    QPushButton* const button = makeButton(label, ButtonKind::primary);
    m_column->addSpacing(metrics::inGroup);
    addCentred(*m_column, button);
    return button;
}

}  // namespace morvak
