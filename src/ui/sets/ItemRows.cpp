#include "ui/sets/ItemRows.h"

#include "ui/blocks/Buttons.h"
#include "ui/blocks/IconButton.h"
#include "ui/blocks/WrapLayout.h"
#include "ui/theme/Metrics.h"
#include "ui/theme/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

ItemRows::ItemRows(const Theme& theme, const Texts& texts, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_texts(texts), m_column(new QVBoxLayout), m_below(new WrapLayout)
{
    QPushButton* const append = makeButton(texts.append);
    append->setObjectName(u"appendItem"_s);
    append->setAutoDefault(false);
    connect(append, &QPushButton::clicked, this, &ItemRows::appendAndFocus);
    m_below->addWidget(append);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::inGroup);
    m_column->setSpacing(metrics::inGroup);
    column->addLayout(m_column);
    column->addLayout(m_below);
}

QList<SetItem> ItemRows::items() const
{
    QList<SetItem> items;
    for (const Row& row : m_rows) {
        if (!row.name->text().isEmpty())
            items.append({.id = row.id, .name = row.name->text(), .color = row.color->text()});
    }
    return items;
}

void ItemRows::setItems(const QList<SetItem>& items)
{
    while (!m_rows.isEmpty())
        remove(m_rows.constLast().frame);
    for (const SetItem& item : items)
        append(item);
}

void ItemRows::append(const SetItem& item)
{
    Row row{item.id, new QWidget, new QLineEdit(item.name), new QLineEdit(item.color)};
    row.name->setObjectName(u"itemName"_s);
    row.color->setObjectName(u"itemColor"_s);
    row.name->setPlaceholderText(m_texts.name);
    row.color->setPlaceholderText(m_texts.color);
    const QString number = QString::number(m_rows.size() + 1);
    row.name->setAccessibleName(m_texts.name + u' ' + number);
    row.color->setAccessibleName(m_texts.color + u' ' + number);
    auto* const removal =
        new IconButton(m_theme, u"minus.circle.fill"_s, tr("Item verwijderen"), nullptr, Role::danger);
    removal->setObjectName(u"removeItem"_s);

    auto* const line = new QHBoxLayout(row.frame);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(metrics::inGroup);
    line->addWidget(row.name, 3);
    line->addWidget(row.color, 2);
    line->addWidget(removal);
    m_column->addWidget(row.frame);
    m_rows.append(row);
    for (QLineEdit* const field : {row.name, row.color})
        connect(field, &QLineEdit::textChanged, this, &ItemRows::changed);
    connect(removal, &IconButton::clicked, this, [this, frame = row.frame] { remove(frame); });
    Q_EMIT changed();
}

void ItemRows::addBesideAppend(QWidget* button)
{
    m_below->addWidget(button);
}

void ItemRows::keyPressEvent(QKeyEvent* event)
{
    const qsizetype row = focusedRow();
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || row < 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (row + 1 < m_rows.size())
        m_rows[row + 1].name->setFocus(Qt::TabFocusReason);
    else
        appendAndFocus();
}

void ItemRows::appendAndFocus()
{
    append({});
    QLineEdit* const name = m_rows.constLast().name;
    name->show();
    name->setFocus(Qt::TabFocusReason);
}

void ItemRows::remove(QWidget* frame)
{
    const auto row =
        std::find_if(m_rows.begin(), m_rows.end(), [frame](const Row& each) { return each.frame == frame; });
    Q_ASSERT(row != m_rows.end());
    m_rows.erase(row);
    frame->hide();
    frame->deleteLater();  // it is its own button that was pressed
    Q_EMIT changed();
}

/// -1 when the focus is in no field of a row.
qsizetype ItemRows::focusedRow() const
{
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [](const Row& each) {
        return each.name->hasFocus() || each.color->hasFocus();
    });
    return row == m_rows.end() ? -1 : row - m_rows.begin();
}

}  // namespace morvak
