#include "ui/sets/SearchField.h"

#include "ui/base/blocks/IconButton.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/theme/Metrics.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace morvak {

SearchField::SearchField(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_field(new QLineEdit),
      m_clear(new IconButton(theme, u"xmark.circle.fill"_s, tr("Zoekopdracht wissen") + u" (Esc)"_s, nullptr,
                             Role::secondary))
{
    m_field->setObjectName(u"searchField"_s);
    m_field->setPlaceholderText(tr("Zoek op naam, model of item..."));
    m_field->setAccessibleName(tr("Sets zoeken"));
    m_field->setToolTip(u"Ctrl+F"_s);
    m_field->setAcceptDrops(false);  // files are for the tab
    m_field->installEventFilter(this);
    m_clear->setObjectName(u"clearSearch"_s);
    m_clear->hide();

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    constexpr int scanSymbol = 24;  // the fields stand below each other
    row->addSpacing((scanSymbol - metrics::smallIcon) / 2);
    row->addWidget(new SymbolLabel(theme, u"magnifyingglass"_s, metrics::smallIcon, Role::secondary));
    row->addSpacing((scanSymbol - metrics::smallIcon) / 2);
    row->addWidget(m_field, 1);
    row->addWidget(m_clear);

    connect(m_field, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_clear->setVisible(!text.isEmpty());
        Q_EMIT textChanged(text);
    });
    connect(m_clear, &QAbstractButton::clicked, this, [this] {
        clear();
        focusField();
    });
}

QString SearchField::text() const
{
    return m_field->text();
}

void SearchField::clear()
{
    m_field->clear();
}

void SearchField::focusField()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

bool SearchField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool SearchField::takeKey(int key)
{
    switch (key) {
        case Qt::Key_Escape:
            if (text().isEmpty())
                Q_EMIT left();
            else
                clear();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            Q_EMIT resultsAsked();
            return true;
        default:
            return false;
    }
}

}  // namespace morvak
