#include "ui/base/blocks/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace morvak {

namespace {

constexpr int minimumCharacters = 3;

}  // namespace

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent, Qt::TextElideMode mode)
    : QLabel(parent), m_mode(mode)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void ElidedLabel::setText(const QString& text)
{
    QLabel::setText(text);
    setAccessibleName(text);
}

bool ElidedLabel::isElided() const
{
    return fontMetrics().horizontalAdvance(oneLine()) > contentsRect().width();
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return QSize(fontMetrics().horizontalAdvance(oneLine()) + 1, fontMetrics().height()).grownBy(margins);
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    return {std::min(whole.width(), fontMetrics().averageCharWidth() * minimumCharacters), whole.height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(oneLine(), m_mode, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        if (isElided())
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), Qt::convertFromPlainText(text()),
                               this);
        return true;
    }
    return QLabel::event(event);
}

QString ElidedLabel::oneLine() const
{
    return text().simplified();
}

}  // namespace morvak
