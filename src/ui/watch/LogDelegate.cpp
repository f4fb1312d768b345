#include "ui/watch/LogDelegate.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/watch/LogModel.h"
#include "ui/watch/LogText.h"

#include <QAbstractItemView>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int sideMargin = 12;
constexpr int rowMargin = 5;  // above and below the text
constexpr int markerSize = 16;
constexpr int leastMessageWidth = 80;
constexpr qsizetype mostHeights = 1000;
constexpr double selectedOpacity = 0.18;

}  // namespace

LogDelegate::LogDelegate(const Theme& theme, QObject* parent)
    : QStyledItemDelegate(parent),
      m_theme(theme),
      m_timeFont(Theme::tabular(theme.font(TextStyle::caption))),
      m_messageFont(theme.font(TextStyle::body)),
      m_timeWidth(QFontMetrics(m_timeFont).horizontalAdvance(u"00:00:00"_s)),
      m_lineHeight(QFontMetrics(m_messageFont).height())
{
    for (const LogType type : {LogType::info, LogType::success, LogType::warning, LogType::error})
        m_markers.at(static_cast<size_t>(type)) = theme.icons().icon(markerSymbol(type), markerRole(type));
}

int LogDelegate::messageLeft() const
{
    return sideMargin + m_timeWidth + metrics::inGroup + markerSize + metrics::inGroup;
}

int LogDelegate::messageWidth(int rowWidth) const
{
    return std::clamp(rowWidth - messageLeft() - sideMargin, leastMessageWidth, metrics::readableWidth);
}

int LogDelegate::layOut(QTextLayout& layout, const QString& message, int width) const
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setFont(m_messageFont);
    layout.setText(message);
    layout.setFormats(emojiFormats(message, m_messageFont));
    layout.setCacheEnabled(true);
    layout.beginLayout();
    int height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        // An emoji must not make its line higher than the others.
        const int rise = static_cast<int>(std::floor((m_lineHeight - line.height()) / 2));
        line.setPosition(QPointF(0, height + rise));
        height += m_lineHeight;
    }
    layout.endLayout();
    return height;
}

int LogDelegate::messageHeight(const QModelIndex& index, int width) const
{
    if (width != m_heightsWidth || m_heights.size() > mostHeights)
        m_heights.clear();
    m_heightsWidth = width;
    const QUuid id = index.data(LogModel::IdRole).toUuid();
    auto known = m_heights.constFind(id);
    if (known == m_heights.constEnd()) {
        QTextLayout layout;
        known = m_heights.insert(id, layOut(layout, index.data().toString(), width));
    }
    return *known;
}

QSize LogDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    return {messageLeft() + leastMessageWidth, messageHeight(index, messageWidth(width)) + 2 * rowMargin};
}

void LogDelegate::paintBackground(QPainter& painter, const QStyleOptionViewItem& option) const
{
    const QColor card = m_theme.color(Role::card);
    if (option.state.testFlag(QStyle::State_Selected))
        painter.fillRect(option.rect, blended(m_theme.color(Role::accent), card, selectedOpacity));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(m_theme.color(Role::accent));
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

void LogDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    paintBackground(*painter, option);
    const QRect row = option.rect.adjusted(sideMargin, rowMargin, 0, -rowMargin);

    painter->setFont(m_timeFont);
    painter->setPen(m_theme.color(Role::secondary));
    painter->drawText(QRect(row.left(), row.top(), m_timeWidth, m_lineHeight),
                      Qt::AlignVCenter | Qt::AlignRight, index.data(LogModel::TimeRole).toString());

    const QPoint marker(row.left() + m_timeWidth + metrics::inGroup,
                        row.top() + (m_lineHeight - markerSize) / 2);
    m_markers.at(index.data(LogModel::TypeRole).toUInt())
        .paint(painter, QRect(marker, QSize(markerSize, markerSize)));

    QTextLayout message;
    layOut(message, index.data().toString(), messageWidth(option.rect.width()));
    painter->setPen(m_theme.color(Role::text));
    message.draw(painter, QPointF(option.rect.left() + messageLeft(), row.top()));
    painter->restore();
}

}  // namespace morvak
