#include "ui/base/blocks/ItemRows.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/blocks/IconButton.h"
#include "ui/base/blocks/WrapLayout.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

ItemRows::ItemRows(const Theme& theme, const Texts& texts, QWidget* parent)
    : QWidget(parent),
      m_theme(theme),
      m_texts(texts),
      m_column(new QVBoxLayout),
      m_below(new WrapLayout),
      m_append(makeButton(texts.append))
{
    m_append->setObjectName(u"appendItem"_s);
    connect(m_append, &QPushButton::clicked, this, &ItemRows::appendAndFocus);
    m_below->addWidget(m_append);

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
        if (row.name->text().isEmpty())
            continue;
        SetItem item;
        item.name = enteredText(*row.name);
        item.color = enteredText(*row.color);
        items.append(item);
    }
    return items;
}

void ItemRows::setItems(const QList<SetItem>& items)
{
    while (!m_rows.isEmpty())
        remove(m_rows.constLast().frame);
    for (const SetItem& item : items) {
        appendEmptyRow();
        append(item);
    }
}

void ItemRows::append(const SetItem& item)
{
    if (m_rows.isEmpty() || !m_rows.constLast().name->text().isEmpty() ||
        !m_rows.constLast().color->text().isEmpty())
        appendEmptyRow();
    setFieldText(*m_rows.constLast().name, item.name);
    setFieldText(*m_rows.constLast().color, item.color);
}

void ItemRows::appendEmptyRow()
{
    const Row row{new QWidget, new QLineEdit, new QLineEdit,
                  new IconButton(m_theme, u"minus.circle.fill"_s, {}, nullptr, Role::danger)};
    row.name->setObjectName(u"itemName"_s);
    row.color->setObjectName(u"itemColor"_s);
    row.removal->setObjectName(u"removeItem"_s);
    row.name->setPlaceholderText(m_texts.name);
    row.color->setPlaceholderText(m_texts.color);

    auto* const line = new QHBoxLayout(row.frame);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(metrics::inGroup);
    line->addWidget(row.name, 3);
    line->addWidget(row.color, 2);
    line->addWidget(row.removal);
    m_column->addWidget(row.frame);
    addToTabOrder(row);
    m_rows.append(row);
    numberRows();
    for (const QLineEdit* const field : {row.name, row.color})
        connect(field, &QLineEdit::textChanged, this, &ItemRows::changed);
    connect(row.removal, &IconButton::clicked, this, [this, frame = row.frame] { remove(frame); });
    Q_EMIT changed();
}

/// A new widget comes last in its window: behind the buttons of the sheet.
void ItemRows::addToTabOrder(const Row& row)
{
    QWidget* before = m_append->previousInFocusChain();
    while (before != m_append && (before->focusPolicy() & Qt::TabFocus) == 0)
        before = before->previousInFocusChain();
    for (QWidget* const field : {static_cast<QWidget*>(row.name), static_cast<QWidget*>(row.color),
                                 static_cast<QWidget*>(row.removal)}) {
        QWidget::setTabOrder(before, field);
        before = field;
    }
}

void ItemRows::numberRows()
{
    for (qsizetype at = 0; at < m_rows.size(); ++at) {
        const QString number = u' ' + QString::number(at + 1);
        m_rows[at].name->setAccessibleName(m_texts.name + number);
        m_rows[at].color->setAccessibleName(m_texts.color + number);
        m_rows[at].removal->setToolTip(tr("Item verwijderen"));
        m_rows[at].removal->setAccessibleName(tr("Item verwijderen:") + number);
    }
}

void ItemRows::addBesideAppend(QWidget* button)
{
    m_below->addWidget(button);
}

void ItemRows::keyPressEvent(QKeyEvent* event)
{
    const qsizetype row = focusedRow();
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || row < 0)
        return QWidget::keyPressEvent(event);
    if (event->isAutoRepeat())
        return;
    if (row + 1 < m_rows.size())
        m_rows[row + 1].name->setFocus(Qt::TabFocusReason);
    else
        appendAndFocus();
}

void ItemRows::appendAndFocus()
{
    appendEmptyRow();
    m_rows.constLast().frame->show();  // the layout shows it later
    m_rows.constLast().name->setFocus(Qt::TabFocusReason);
}

void ItemRows::remove(QWidget* frame)
{
    const auto row =
        std::find_if(m_rows.begin(), m_rows.end(), [frame](const Row& each) { return each.frame == frame; });
    Q_ASSERT(row != m_rows.end());
    const bool hadFocus = row->removal->hasFocus();
    const auto next = m_rows.erase(row);
    if (hadFocus)
        (next == m_rows.end() ? static_cast<QWidget*>(m_append) : next->removal)->setFocus();
    frame->hide();
    frame->deleteLater();  // it is its own button that was pressed
    numberRows();
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
